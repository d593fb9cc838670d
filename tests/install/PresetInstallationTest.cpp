#include "tests/install/InstallFixture.h"
#include "tests/support/MTestText.h"

#include <filesystem>

namespace {

const char* const Header = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";
const std::string Users = R"(<Set><preset name="Mine"/><preset name="Y" x="changed"/></Set>)";
const std::string Shipped = R"(<Set ExchangeIndex="4"><preset name="Y" x="2"/></Set>)";
const std::string Merged = std::string(Header) +
                           "<Set>\n\t<preset name=\"Mine\"/>\n\t<preset ExchangeIndex=\"0\" "
                           "name=\"Y\" x=\"2\"/>\n</Set>\n";

}  // namespace

class PresetInstallationTest : public InstallTest {
protected:
    ~PresetInstallationTest() noexcept override = default;

    void DefinePresets(const std::string& content = Shipped) {
        Define("<files enabled=\"1\" rewritable=\"0\" destination=\"x\" currentpath=\"{to}\">" +
               File("Setpresets.xml", content) + File("last", "3") + "</files>");
    }
    /// As a run that was killed in its last steps.
    void PerformAndBeKilled() {
        Perform();
        processor.reset();
    }
    void PerformCompletely() {
        Perform();
        processor->Complete();
        processor.reset();
    }
    [[nodiscard]] std::string List() const {
        std::string names;
        for (const MFileListEntry& entry : MFile::GetFileList(GetTarget())) names += Text(entry.name) + "\n";
        return names;
    }
    [[nodiscard]] MString GetPresetFile() const { return MFile::Join(GetTarget(), "Setpresets.xml"); }
};

TEST_F(PresetInstallationTest, MergesAndKeepsWhatWasThereAsTheBackup) {
    DefinePresets();
    Put("Setpresets.xml", Users);
    Put("Setpresets.xmlbackup", "of an earlier version");
    Perform();
    EXPECT_EQ(Read("Setpresets.xml"), Merged);
    EXPECT_EQ(Read("Setpresets.xmlbackup"), Users);
    EXPECT_EQ(processor->GetProgress().itemIndex, 2);
    EXPECT_EQ(processor->GetProgress().doneBytes, processor->GetProgress().totalBytes);
    EXPECT_NE(
        ReadLog().find("File exists = 1  rewritable = 0\nProcessing preset file " + Text(GetPresetFile())),
        std::string::npos);
}

TEST_F(PresetInstallationTest, ANewFileIsWrittenAndAnEmptyMergeTouchesNothing) {
    DefinePresets();
    Perform();
    EXPECT_EQ(Read("Setpresets.xml"), Shipped);
    DefinePresets("<Set><other/></Set>");
    Put("Setpresets.xml", Users);
    Perform();
    EXPECT_EQ(Read("Setpresets.xml"), Users);
    EXPECT_FALSE(Exists("Setpresets.xmlbackup"));
}

TEST_F(PresetInstallationTest, WhateverIsInTheWayOfTheBackupGives) {
    DefinePresets();
    Put("Setpresets.xml", Users);
    Put("Setpresets.xmlbackup/folder/file", "in the way");
    Perform();
    EXPECT_EQ(Read("Setpresets.xml"), Merged);
    EXPECT_EQ(Read("Setpresets.xmlbackup"), Users);
}

TEST_F(PresetInstallationTest, AWriteProtectedFileIsMergedAndBackedUp) {
    using std::filesystem::perms;
    DefinePresets();
    for (const char* name : {"Setpresets.xml", "Setpresets.xmlbackup"}) {
        Put(name, Users);
        std::filesystem::permissions(Text(MFile::Join(GetTarget(), name)),
                                     perms::owner_read | perms::group_read);
    }
    Perform();
    EXPECT_EQ(Read("Setpresets.xml"), Merged);
    EXPECT_EQ(Read("Setpresets.xmlbackup"), Users);
    EXPECT_EQ(List().find("unfinished"), std::string::npos) << List();
}

TEST_F(PresetInstallationTest, WhatCannotBeReadStaysAndTheRunGoesOn) {
    const struct {
        std::string existing;
        std::string shipped;
    } cases[] = {{"<Set><preset name=\"Mine\">", Shipped}, {"", Shipped}, {Users, "no presets"}};
    for (const auto& [existing, shipped] : cases) {
        DefinePresets(shipped);
        Put("Setpresets.xml", existing);
        if (Exists("last")) MFile::Delete(MFile::Join(GetTarget(), "last"));
        Perform();
        EXPECT_EQ(Read("Setpresets.xml"), existing);
        EXPECT_FALSE(Exists("Setpresets.xmlbackup"));
        EXPECT_EQ(Read("last"), "3");
        EXPECT_TRUE(dialogs.errors.IsEmpty());
    }
}

// A second merge would put what the first one made in the place of the only copy of what the musician had.
TEST_F(PresetInstallationTest, ARunAfterAKilledOneKeepsTheFirstBackup) {
    DefinePresets();
    Put("Setpresets.xml", Users);
    PerformAndBeKilled();
    EXPECT_EQ(Read("Setpresets.xml"), Merged);
    PerformCompletely();
    EXPECT_EQ(Read("Setpresets.xml"), Merged);
    EXPECT_EQ(Read("Setpresets.xmlbackup"), Users);
    EXPECT_FALSE(
        MFile::Exists(MFile::Join(MFile::GetSpecialPath(MSpecialFolderUserData), "InstallerMerges.txt")));

    // After a complete run the next one counts for itself.
    PerformCompletely();
    EXPECT_EQ(Read("Setpresets.xmlbackup"), Merged);
}

TEST_F(PresetInstallationTest, ARunOfAnotherVersionAfterAKilledOneMerges) {
    DefinePresets();
    Put("Setpresets.xml", Users);
    PerformAndBeKilled();
    DefinePresets(R"(<Set><preset name="Z"/></Set>)");
    PerformCompletely();
    EXPECT_NE(Read("Setpresets.xml").find("name=\"Z\""), std::string::npos);
    EXPECT_EQ(Read("Setpresets.xmlbackup"), Merged);
    EXPECT_EQ(List().find("unfinished"), std::string::npos);
}

TEST_F(PresetInstallationTest, OlderDataMovesIntoTheUsersFolder) {
    const MString userData = MFile::GetSpecialPath(MSpecialFolderUserData);
    Define("<files enabled=\"1\" destination=\"x\" currentpath=\"" + Text(userData) + "\">" +
           File("plain", "1") + "</files>");
    for (const char* name :
         {"my.presets.xml", "presets.xml", "MTunerpresets.active", "StepSequencepresets.xml", "Kestrum/a/b",
          "Corvanth IR", "other/mpresets.xml", "mtaken.presets.xml"})
        scratch.WriteFile(name, name);
    scratch.WriteFile("userdata/mtaken.presets.xml", "newer");
    scratch.WriteFile("userdata/Kestrum/kept", "kept");
    Perform();
    EXPECT_EQ(scratch.ReadFile("userdata/my.presets.xml"), "my.presets.xml");
    EXPECT_EQ(scratch.ReadFile("userdata/MTunerpresets.active"), "MTunerpresets.active");
    EXPECT_EQ(scratch.ReadFile("userdata/MStepSequencepresets.xml"), "StepSequencepresets.xml");
    EXPECT_EQ(scratch.ReadFile("userdata/Kestrum/a/b"), "Kestrum/a/b");
    EXPECT_EQ(scratch.ReadFile("userdata/Kestrum/kept"), "kept");
    EXPECT_EQ(scratch.ReadFile("userdata/Corvanth IR"), "Corvanth IR");
    EXPECT_EQ(scratch.ReadFile("userdata/mtaken.presets.xml"), "newer");
    for (const char* name : {"presets.xml", "mtaken.presets.xml", "other/mpresets.xml"})
        EXPECT_EQ(scratch.ReadFile(name), name);
    for (const char* name : {"my.presets.xml", "Kestrum", "Corvanth IR", "StepSequencepresets.xml"})
        EXPECT_FALSE(MFile::Exists(scratch.Join(name))) << name;
}
