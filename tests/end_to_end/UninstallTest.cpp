#include "tests/end_to_end/EndToEndFixture.h"

class UninstallTest : public EndToEndTest {
protected:
    void PackProduct() {
        scratch.WriteFile("product/files/sub/a.txt", "a");
        scratch.WriteFile("product/files/b.txt", "b");
        scratch.WriteFile("product/presets/Setpresets.xml", "<Set><preset name=\"Shipped\"/></Set>");
        Pack(
            R"(<files path="files" destination="{destination}/files" required="1"/>)"
            R"(<files path="presets" destination="{destination}/presets" required="1" rewritable="0" createpath="0"/>)"
            R"(<shortcutdirectory name="Uninstall Test"><shortcut name="Remove" preset="uninstall"/>)"
            "</shortcutdirectory>");
    }
    [[nodiscard]] MProgramResult Remove() const { return Start(GetRemover("to"), ToList({"silent"})); }
};

TEST_F(UninstallTest, TakesAwayAllButPresetsAndItself) {
    PackProduct();
    ASSERT_EQ(InstallSilently().exitCode, 0);
    EXPECT_EQ(MReadTestFile(GetRemover("to")), MReadTestFile(SETUP_PROGRAM));
    EXPECT_FALSE(MFile::FindLink(InMenu("Uninstall Test/Remove")).IsEmpty());

    const MProgramResult refused = Start(GetRemover("to"), ToList({"silent", "everything"}));
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_THAT(refused.errors, HasSubstr("\"everything\""));
    EXPECT_TRUE(IsInHome("to/setup.state"));

    const MProgramResult removed = Start(GetRemover("to"), ToList({"uninstall", "silent"}));
    EXPECT_EQ(removed.exitCode, 0) << removed.errors;
    EXPECT_EQ(removed.errors, "");
    EXPECT_TRUE(IsInHome("to/presets/Setpresets.xml"));
    EXPECT_TRUE(MFile::Exists(GetRemover("to")));
    for (const char* gone : {"to/files", "to/setup.state"}) EXPECT_FALSE(IsInHome(gone)) << gone;
    EXPECT_FALSE(MFile::Exists(InMenu("Uninstall Test")));
}

TEST_F(UninstallTest, WhatCannotBeRemovedIsListedWithCode3) {
    PackProduct();
    ASSERT_EQ(InstallSilently().exitCode, 0);
    MFile::Delete(InHome("to/files/b.txt"));
    scratch.WriteFile("home/to/files/b.txt/inside", "in the way");
    scratch.WriteFile("home/to/files/sub/own.txt", "the musician's own");
    const MProgramResult removed = Remove();
    EXPECT_EQ(removed.exitCode, 3);
    EXPECT_EQ(removed.errors, "These could not be removed:\n    " + Text(InHome("to/files/b.txt")) + "\n");
    EXPECT_THAT(removed.output, HasSubstr("These folders stay, since they hold something else:\n    " +
                                          Text(InHome("to/files/sub")) + "\n"));
    EXPECT_FALSE(IsInHome("to/files/sub/a.txt"));
    EXPECT_EQ(ReadHome("to/files/sub/own.txt"), "the musician's own");
    EXPECT_FALSE(IsInHome("to/setup.state"));
}

TEST_F(UninstallTest, RefusesACopiedOrMovedFolderAndAPlantedState) {
    PackProduct();
    ASSERT_EQ(InstallSilently().exitCode, 0);
    MFile::Copy(InHome("to"), InHome("copy"));
    MFile::MakeExecutable(GetRemover("copy"));
    OpenForEverybody(InHome("copy"));
    const MProgramResult copied = Start(GetRemover("copy"), ToList({"silent"}));
    EXPECT_EQ(copied.exitCode, 2);
    EXPECT_THAT(copied.errors, HasSubstr("Please start \"" + Text(GetRemover("to")) + "\" instead"));
    EXPECT_TRUE(IsInHome("to/files/b.txt"));

    scratch.WriteFile("home/to/setup.dat", "data");
    const MProgramResult planted = Remove();
    EXPECT_EQ(planted.exitCode, 2);
    EXPECT_THAT(planted.errors, HasSubstr("setup.dat\" lie in the folder of this program."));
    EXPECT_TRUE(IsInHome("to/files/b.txt"));
}

TEST_F(UninstallTest, OlderVersionsGoOnlyWhenAskedFor) {
    PackProduct();
    ASSERT_EQ(Install({"silent", "directory:destination=old"}).exitCode, 0);
    scratch.WriteFile("product/new.txt", "new");
    PackAs(GetInstaller(), "name=\"Newer Product\"",
           "<uninstall>Test Product</uninstall><uninstall>Not there</uninstall>" + ToDestination("new.txt"));
    ASSERT_EQ(InstallSilently().exitCode, 0);
    EXPECT_TRUE(IsInHome("old/files/b.txt"));
    EXPECT_EQ(Install({"silent", "directory:destination=Plu\xffgins", "remove-older=yes"}).exitCode, 2);
    EXPECT_TRUE(IsInHome("old/files/b.txt")) << "what is refused is refused before anything is removed";
    MFile::Delete(InHome("old/files/b.txt"));
    scratch.WriteFile("home/old/files/b.txt/inside", "in the way");
    const MProgramResult result = InstallSilently({"remove-older=yes"});
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("Removing Test Product..."));
    EXPECT_THAT(result.errors, HasSubstr("Test Product could not be removed completely by \""));
    EXPECT_FALSE(IsInHome("old/files/sub"));
    EXPECT_FALSE(IsInHome("old/setup.state"));
    EXPECT_EQ(ReadHome("to/new.txt"), "new");
    EXPECT_EQ(Remove().exitCode, 0);
}

TEST_F(UninstallTest, ARegistryThatRefusesEndsTheRunWithoutLinksAndState) {
    std::string name(300, 'n');  // nested too deep for a path, and too long for a key of Windows
    for (int level = 0; level < 5; level++) name += "\\" + name;
    scratch.WriteFile("product/a.txt", "a");
    PackAs(GetInstaller(), "name=\"T\" installationname=\"" + name + "\"",
           ToDestination("a.txt") + "<shortcut name=\"Uninstall Test refused\" preset=\"uninstall\"/>");
    const MProgramResult result = InstallSilently();
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.errors, HasSubstr("Cannot create registry key " + name + "."));
    EXPECT_TRUE(MFile::Exists(GetRemover("to")));
    EXPECT_FALSE(IsInHome("to/setup.state"));
    EXPECT_TRUE(MFile::FindLink(InMenu("Uninstall Test refused")).IsEmpty());
}
