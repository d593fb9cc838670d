#include "foundation/files/posix/MNativePath.h"
#include "tests/end_to_end/EndToEndFixture.h"
#include "tests/support/posix/MTestDesktop.h"

/// The links of an installed product, read and started as a desktop does it.
class InstalledLinksTest : public EndToEndTest {
protected:
    MTestDesktop desktop{InHome(""), true};
};

TEST_F(InstalledLinksTest, AreValidAndStartWhatTheyNameUntilTheProductIsRemoved) {
    scratch.WriteFile("product/files/Read me.txt", "text");
    desktop.WriteRecorder(InProduct("files/editor.run"));
    scratch.WriteFile("product/files/editor.png", "picture");
    Pack(
        ToDestination("files") +
        "<shortcutdirectory name=\"\xC5\x98\xC3\xA9verbs &amp; more\"><shortcutdirectory name=\"Tools\">"
        "<shortcut name=\"Editor\" destination=\"{destination}/editor.run\" arguments=\"--file &quot;my song&quot; "
        "100%\">Edits; 50% faster</shortcut></shortcutdirectory>"
        "<shortcut name=\"Manual\" destination=\"{destination}/Read me.txt\"/>"
        "<shortcut name=\"Removal\" preset=\"uninstall\"/>"
        "<shortcut name=\"Web\" destination=\"https://example.org/?a=%20b&amp;c;d\"/></shortcutdirectory>"
        "<shortcut name=\"Editor\" desktop=\"1\" destination=\"{destination}/editor.run\"/>");
    const MProgramResult result = InstallSilently();
    ASSERT_EQ(result.exitCode, 0) << result.errors;

    const MString folder = InMenu(MDecodeUTF8Exact("\xC5\x98\xC3\xA9verbs & more"));
    const std::string directory = Text(InHome("to")) + "\n";
    const std::pair<MString, std::string> links[] = {
        {MFile::Join(folder, "Tools/Editor.desktop"), directory + "[--file]\n[my song]\n[100%]\n"},
        {MFile::Join(folder, "Manual.desktop"), directory + "[" + Text(InHome("to/Read me.txt")) + "]\n"},
        {MFile::Join(folder, "Removal.desktop"), directory + "[uninstall]\n"},
        {MFile::Join(folder, "Web.desktop"), Text(InHome("")) + "\n[https://example.org/?a=%20b&c;d]\n"},
        {InHome("Desktop/Editor.desktop"), directory},
    };
    MFile::Rename(InHome("to/setup.run"), InHome("to/setup"));
    desktop.WriteRecorder(InHome("to/setup.run"));
    for (const auto& [link, record] : links) {
        ASSERT_TRUE(MFile::Exists(link)) << Text(link);
        EXPECT_EQ(desktop.Validate(link), "");
        EXPECT_EQ(desktop.Launch(link), record);
    }
    EXPECT_THAT(MReadTestFile(InHome("Desktop/Editor.desktop")),
                HasSubstr("\nIcon=" + Text(InHome("to/editor.png")) + "\n"));
    EXPECT_THAT(MReadTestFile(links[1].first), HasSubstr("\nIcon=text-x-generic\n"));

    MFile::Delete(InHome("to/setup.run"));
    MFile::Rename(InHome("to/setup"), InHome("to/setup.run"));
    EXPECT_EQ(Start(GetRemover("to"), ToList({"silent"})).exitCode, 0);
    for (const auto& [link, record] : links) EXPECT_FALSE(MFile::Exists(link)) << Text(link);
    EXPECT_FALSE(MFile::Exists(folder));
}

// Backslashes of a definition separate, those in the names of folders do not.
TEST_F(InstalledLinksTest, AHomeWithABackslashInItsNameIsUsedAndLeftAsItWas) {
    const MString home = InHome(MPathFromNative("up\\down"));
    MFile::CreatePath(home);
    OpenForEverybody(home);
    scratch.WriteFile("product/files/tool.run", "#!/bin/sh\n");
    PackAs(GetInstaller(), "name=\"Test Product\"",
           R"(<directory id="opt" name="O" default="{programfiles}\Tool"/>)"
           R"(<files path="files" destination="{opt}\in\bin" required="1"/>)" +
               ToDestination("files") + R"(<shortcut name="Tool" destination="{opt}\in\bin\tool.run"/>)");
    MList<MString> words = ToList({"silent"});
    words.Add("directory:destination=" + InHome("up\\down/main"));
    const MString link = MFile::Join(home, ".local/share/applications/Tool.desktop");
    MProgramResult result = MRunTestProgram(GetInstaller(), words, InHome(""), home);
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_TRUE(MFile::Exists(MFile::Join(home, ".local/opt/Tool/in/bin/tool.run")));
    EXPECT_EQ(Text(MFile::GetLinkDirectory(link)), Text(InHome("up\\down/.local/opt/Tool/in/bin")));
    result = MRunTestProgram(MFile::Join(home, "main/setup.run"), ToList({"silent"}), home, home);
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_FALSE(MFile::Exists(link));
    EXPECT_FALSE(MFile::Exists(MFile::Join(home, ".local/opt/Tool/in/bin")));
    EXPECT_FALSE(MFile::Exists(MFile::Join(home, "main/tool.run")));
    EXPECT_FALSE(IsInHome("up"));
}
