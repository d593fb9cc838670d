#include "tests/install/InstallFixture.h"

#include <filesystem>

using testing::HasSubstr;
using testing::Not;

namespace {

const std::string Users = R"(<Set><preset name="Mine"/><preset name="Y" x="changed"/></Set>)";
const std::string Shipped = R"(<Set ExchangeIndex="4"><preset name="Y" x="2"/></Set>)";
const std::string Merged = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Set>\n\t<preset name=\"Mine\"/>\n\t"
                           "<preset ExchangeIndex=\"0\" name=\"Y\" x=\"2\"/>\n</Set>\n";

}  // namespace

class PresetInstallationTest : public InstallTest {
protected:
    ~PresetInstallationTest() noexcept override = default;

    void DefinePresets(const std::string& content = Shipped) {
        Define(Files("", File("Setpresets.xml", content) + File("last", "3"), "rewritable=\"0\""));
    }
    /// `Perform` alone is as a run that was killed in its last steps.
    void PerformCompletely() {
        Perform();
        processor->Complete();
        processor.reset();
    }
    void ExpectUnmerged(const char* reason) const {
        const MList<MUnmergedPresets>& unmerged = processor->GetUnmerged();
        ASSERT_EQ(unmerged.GetCount(), 1);
        EXPECT_EQ(Text(unmerged[0].path), Text(InTarget("Setpresets.xml")));
        EXPECT_THAT(Text(unmerged[0].reason), HasSubstr(reason));
    }
    void ExpectMergedFromUsers() const {
        EXPECT_EQ(Read("Setpresets.xml"), Merged);
        EXPECT_EQ(Read("Setpresets.xmlbackup"), Users);
        EXPECT_THAT(scratch.ListTree(), Not(HasSubstr("unfinished")));
    }
};

TEST_F(PresetInstallationTest, MergesAndKeepsWhatWasThereAsTheBackup) {
    DefinePresets();
    Put("Setpresets.xml", Users);
    Put("Setpresets.xmlbackup", "of an earlier version");
    Perform();
    ExpectMergedFromUsers();
    ASSERT_EQ(processor->GetMerged().GetCount(), 1);
    EXPECT_EQ(Text(processor->GetMerged()[0].path), Text(InTarget("Setpresets.xml")));
    EXPECT_EQ(Text(processor->GetMerged()[0].backup), Text(InTarget("Setpresets.xmlbackup")));
    EXPECT_EQ(processor->GetProgress().itemIndex, 2);
    EXPECT_EQ(processor->GetProgress().doneBytes, processor->GetProgress().totalBytes);
    EXPECT_THAT(
        ReadLog(),
        HasSubstr(Place("File exists = 1  rewritable = 0\nProcessing preset file {to}/Setpresets.xml\n")));
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

TEST_F(PresetInstallationTest, WhateverIsInTheWayGivesWay) {
    using std::filesystem::perms;
    DefinePresets();
    Put("Setpresets.xml", Users);
    Put("Setpresets.xmlbackup/folder/file", "in the way");
    Perform();
    ExpectMergedFromUsers();
    Put("Setpresets.xml", Users);
    std::filesystem::permissions(Text(InTarget("Setpresets.xmlbackup")), perms::owner_read);
    PerformCompletely();
    ExpectMergedFromUsers();

    Put("Setpresets.xml", Users);
    std::filesystem::permissions(Text(InTarget("Setpresets.xml")), perms::owner_read | perms::group_read);
    Perform();
    EXPECT_EQ(Read("Setpresets.xml"), Users);
    ExpectUnmerged("write-protected");
}

TEST_F(PresetInstallationTest, WhatCannotBeReadStaysAndTheRunGoesOn) {
    const struct {
        std::string existing;
        std::string shipped;
    } cases[] = {{"<Set><preset name=\"Mine\">", Shipped}, {"", Shipped}, {Users, "no presets"}};
    for (const auto& [existing, shipped] : cases) {
        DefinePresets(shipped);
        Put("Setpresets.xml", existing);
        if (Exists("last")) MFile::Delete(InTarget("last"));
        Perform();
        EXPECT_EQ(Read("Setpresets.xml"), existing);
        EXPECT_FALSE(Exists("Setpresets.xmlbackup"));
        EXPECT_EQ(Read("last"), "3");
        ExpectUnmerged("");
    }
}

// A second merge would put what the first one made in the place of the only copy of what the musician had.
TEST_F(PresetInstallationTest, ARunAfterAKilledOneKeepsTheFirstBackup) {
    DefinePresets();
    Put("Setpresets.xml", Users);
    Perform();
    ExpectMergedFromUsers();
    // As it is left by a run that was killed while it was writing the file in its place.
    Put("Setpresets.xml", std::string(1, '\0') + Merged.substr(1, 40));
    Perform();
    ExpectMergedFromUsers();
    PerformCompletely();
    ExpectMergedFromUsers();
    EXPECT_FALSE(MFile::Exists(scratch.Join("userdata/InstallerMerges.txt")));

    // The same once more after a complete run changes nothing.
    Perform();
    EXPECT_TRUE(processor->GetMerged().IsEmpty());
    ExpectMergedFromUsers();
}

TEST_F(PresetInstallationTest, ARunAfterOneThatCouldNotMergeAllKeepsTheFirstBackup) {
    Define(
        Files("", File("Otherpresets.xml", Shipped) + File("Setpresets.xml", Shipped), "rewritable=\"0\""));
    Put("Setpresets.xml", Users);
    Put("Otherpresets.xml", "damaged");
    PerformCompletely();
    Put("Otherpresets.xml", Users);
    PerformCompletely();
    ExpectMergedFromUsers();
    EXPECT_EQ(Read("Otherpresets.xmlbackup"), Users);
    EXPECT_FALSE(MFile::Exists(scratch.Join("userdata/InstallerMerges.txt")));
}

TEST_F(PresetInstallationTest, ARunOfAnotherVersionAfterAKilledOneMerges) {
    DefinePresets();
    Put("Setpresets.xml", Users);
    Perform();
    DefinePresets(R"(<Set><preset name="Z"/></Set>)");
    PerformCompletely();
    EXPECT_THAT(Read("Setpresets.xml"), HasSubstr("name=\"Z\""));
    EXPECT_EQ(Read("Setpresets.xmlbackup"), Users);
}

TEST_F(PresetInstallationTest, OlderDataMovesIntoTheUsersFolder) {
    Define("<files enabled=\"1\" currentpath=\"" + Text(scratch.Join("userdata")) + "\">" +
           File("plain", "1") + "</files>");
    for (const char* name :
         {"my.presets.xml", "presets.xml", "MTunerpresets.active", "StepSequencepresets.xml", "Kestrum/a/b",
          "Kestrum/taken", "Corvanth IR", "other/mpresets.xml", "mtaken.presets.xml"})
        scratch.WriteFile(name, name);
    scratch.WriteFile("userdata/mtaken.presets.xml", "newer");
    scratch.WriteFile("userdata/Kestrum/kept", "kept");
    scratch.WriteFile("userdata/Kestrum/taken", "newer");
    Perform();
    EXPECT_EQ(scratch.ReadFile("userdata/my.presets.xml"), "my.presets.xml");
    EXPECT_EQ(scratch.ReadFile("userdata/MTunerpresets.active"), "MTunerpresets.active");
    EXPECT_EQ(scratch.ReadFile("userdata/MStepSequencepresets.xml"), "StepSequencepresets.xml");
    EXPECT_EQ(scratch.ReadFile("userdata/Kestrum/a/b"), "Kestrum/a/b");
    EXPECT_EQ(scratch.ReadFile("userdata/Kestrum/kept"), "kept");
    EXPECT_EQ(scratch.ReadFile("userdata/Kestrum/taken"), "newer");
    EXPECT_EQ(scratch.ReadFile("Kestrum/taken"), "Kestrum/taken");
    EXPECT_EQ(scratch.ReadFile("userdata/Corvanth IR"), "Corvanth IR");
    EXPECT_EQ(scratch.ReadFile("userdata/mtaken.presets.xml"), "newer");
    for (const char* name : {"presets.xml", "mtaken.presets.xml", "other/mpresets.xml"})
        EXPECT_EQ(scratch.ReadFile(name), name);
    for (const char* name : {"my.presets.xml", "Kestrum/a", "Corvanth IR", "StepSequencepresets.xml"})
        EXPECT_FALSE(MFile::Exists(scratch.Join(name))) << name;
}
