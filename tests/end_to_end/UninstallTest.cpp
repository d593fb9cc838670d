#include "tests/end_to_end/EndToEndFixture.h"

#include <gmock/gmock.h>
#include <sstream>

using testing::HasSubstr;

namespace {

const char* const Destination = "<directory id=\"destination\" name=\"D\" default=\"unused\"/>";

}  // namespace

class UninstallTest : public EndToEndTest {
protected:
    ~UninstallTest() noexcept override = default;

    void PackProduct(const std::string& more = "") {
        scratch.WriteFile("product/files/sub/a.txt", "a");
        scratch.WriteFile("product/files/b.txt", "b");
        scratch.WriteFile("product/presets/Setpresets.xml", "<Set><preset name=\"Shipped\"/></Set>");
        Pack(Destination +
             std::string("<files path=\"files\" destination=\"{destination}/files\" required=\"1\"/>"
                         "<files path=\"presets\" destination=\"{destination}/presets\" required=\"1\" "
                         "rewritable=\"0\" createpath=\"0\"/>"
                         "<shortcutdirectory name=\"Uninstall Test\"><shortcut name=\"Remove\" "
                         "preset=\"uninstall\"/></shortcutdirectory>") +
             more);
    }
    [[nodiscard]] std::string ListFolder(const MString& folder) const {
        const std::string prefix = Text(MString("home/") + folder + "/");
        std::string names;
        std::istringstream lines(scratch.ListTree());
        for (std::string line; std::getline(lines, line);)
            if (line.starts_with(prefix) && !line.ends_with('/')) names += line.substr(prefix.size()) + "\n";
        return names;
    }
    [[nodiscard]] std::string GetSetupName() const { return Text(MFile::GetFileName(GetRemover("to"))); }
};

TEST_F(UninstallTest, TakesAwayAllButPresetsAndItself) {
    PackProduct();
    ASSERT_EQ(Install({"silent", "directory:destination=to"}).exitCode, 0);
    EXPECT_EQ(MReadTestFile(GetRemover("to")), MReadTestFile(SETUP_PROGRAM));
    EXPECT_FALSE(MFile::FindLink(InMenu("Uninstall Test/Remove")).IsEmpty());
    const std::string installed = ListFolder("to");

    const MProgramResult asked = Start(GetRemover("to"), {});
    EXPECT_EQ(asked.exitCode, 1);
    EXPECT_EQ(asked.errors,
              "This build has no window for removing. To remove the software, add the word: silent\n");
    const MProgramResult refused = Start(GetRemover("to"), ToList({"silent", "everything"}));
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_THAT(refused.errors, HasSubstr("\"everything\""));
    EXPECT_EQ(ListFolder("to"), installed);

    const MProgramResult removed = Start(GetRemover("to"), ToList({"uninstall", "silent"}));
    EXPECT_EQ(removed.exitCode, 0) << removed.errors;
    EXPECT_EQ(removed.errors, "");
    EXPECT_EQ(ListFolder("to"), "presets/Setpresets.xml\n" + GetSetupName() + "\n");
    EXPECT_FALSE(MFile::Exists(InMenu("Uninstall Test")));
}

TEST_F(UninstallTest, WhatCannotBeRemovedIsListedWithCode3) {
    PackProduct();
    ASSERT_EQ(Install({"silent", "directory:destination=to"}).exitCode, 0);
    MFile::Delete(InHome("to/files/b.txt"));
    scratch.WriteFile("home/to/files/b.txt/inside", "in the way");
    scratch.WriteFile("home/to/files/sub/own.txt", "the musician's own");
    const MProgramResult removed = Start(GetRemover("to"), ToList({"silent"}));
    EXPECT_EQ(removed.exitCode, 3);
    EXPECT_EQ(removed.errors, "These could not be removed:\n    " + Text(InHome("to/files/b.txt")) + "\n");
    EXPECT_THAT(removed.output, HasSubstr("These folders stay, since they hold something else:\n    " +
                                          Text(InHome("to/files/sub")) + "\n"));
    EXPECT_FALSE(IsInHome("to/files/sub/a.txt"));
    EXPECT_EQ(ReadHome("to/files/sub/own.txt"), "the musician's own");
    EXPECT_FALSE(IsInHome("to/setup.state"));
}

TEST_F(UninstallTest, OlderVersionsGoOnlyWhenAskedFor) {
    PackProduct();
    ASSERT_EQ(Install({"silent", "directory:destination=old"}).exitCode, 0);
    scratch.WriteFile("product/new.txt", "new");
    scratch.WriteFile(
        "product/definition.xml",
        "<install name=\"Newer Product\"><uninstall>Test Product</uninstall><uninstall>Not there</uninstall>" +
            std::string(Destination) +
            "<files path=\"new.txt\" destination=\"{destination}\" required=\"1\"/>"
            "<onsuccess/><onerror/><onabort/></install>");
    MList<MString> arguments = ToList({"pack", "definition.xml", "--output"});
    arguments.Add(GetInstaller());
    ASSERT_EQ(Build(arguments).exitCode, 0);

    EXPECT_EQ(Install({"silent", "remove-older=perhaps", "directory:destination=new"}).exitCode, 2);
    ASSERT_EQ(Install({"silent", "directory:destination=new"}).exitCode, 0);
    EXPECT_TRUE(IsInHome("old/files/b.txt"));
    const MProgramResult result = Install({"silent", "remove-older=yes", "directory:destination=new"});
    ASSERT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("Removing Test Product..."));
    EXPECT_FALSE(IsInHome("old/files"));
    EXPECT_FALSE(IsInHome("old/setup.state"));
    EXPECT_EQ(ReadHome("new/new.txt"), "new");
    EXPECT_EQ(Start(GetRemover("new"), ToList({"silent"})).exitCode, 0);
}

TEST_F(UninstallTest, ARegistryThatRefusesEndsTheRunWithoutLinksAndState) {
    const std::string name(300, 'n');
    scratch.WriteFile("product/a.txt", "a");
    scratch.WriteFile("product/definition.xml",
                      "<install name=\"T\" installationname=\"" + name + "\">" + Destination +
                          "<files path=\"a.txt\" destination=\"{destination}\" required=\"1\"/>"
                          "<shortcut name=\"Uninstall Test refused\" preset=\"uninstall\"/>"
                          "<onsuccess/><onerror/><onabort/></install>");
    MList<MString> arguments = ToList({"pack", "definition.xml", "--output"});
    arguments.Add(GetInstaller());
    ASSERT_EQ(Build(arguments).exitCode, 0);
    const MProgramResult result = Install({"silent", "directory:destination=to"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.errors, HasSubstr("Cannot create registry key " + name + "."));
    EXPECT_EQ(ListFolder("to"), "a.txt\n" + GetSetupName() + "\n");
    EXPECT_TRUE(MFile::FindLink(InMenu("Uninstall Test refused")).IsEmpty());
}

TEST_F(UninstallTest, AFolderForLinksThatCannotBeMadeEndsTheRunWithoutState) {
    PackProduct();
    ASSERT_EQ(Install({"silent", "directory:destination=to"}).exitCode, 0);
    MFile::Delete(InHome("to/setup.state"));
    PackProduct("<shortcutdirectory name=\"Uninstall Test blocked\"/>");
    MWriteTestFile(InMenu("Uninstall Test blocked"), "in the way");
    const MProgramResult result = Install({"silent", "directory:destination=to"});
    MFile::Delete(InMenu("Uninstall Test blocked"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.errors,
                HasSubstr("Could not create path \"" + Text(InMenu("Uninstall Test blocked"))));
    EXPECT_FALSE(IsInHome("to/setup.state"));
    EXPECT_EQ(ReadHome("to/files/b.txt"), "b");
    // The next run finishes what this one began.
    EXPECT_EQ(Install({"silent", "directory:destination=to"}).exitCode, 0);
    EXPECT_EQ(Start(GetRemover("to"), ToList({"silent"})).exitCode, 0);
}
