#include "foundation/files/posix/MNativePath.h"
#include "tests/end_to_end/EndToEndFixture.h"

#include <sys/stat.h>
#include <unistd.h>

/// Preset files that a user may not do everything with.
class PresetPermissionsTest : public EndToEndTest {
protected:
    PresetPermissionsTest() {
        scratch.WriteFile("product/presets/Setpresets.xml", R"(<Set><preset name="New"/></Set>)");
        Pack(ToDestination("presets", R"(rewritable="0")"));
        WriteAsUser("to/Setpresets.xml", 0600);
    }
    /// A user's file in the home, and its folder.
    void WriteAsUser(const MString& name, mode_t mode) const {
        MWriteTestFile(InHome(name), Users);
        for (const MString& path : {MFile::GetDirectory(InHome(name)), InHome(name)}) MGiveToTestUser(path);
        SetMode(name, mode);
    }
    void SetMode(const MString& name, mode_t mode) const {
        ASSERT_EQ(chmod(MNativePath(InHome(name)).c_str(), mode), 0);
    }
    [[nodiscard]] struct stat GetStatus(const MString& name) const {
        struct stat status {};
        EXPECT_EQ(lstat(MNativePath(InHome(name)).c_str(), &status), 0) << Text(name);
        return status;
    }
    void ExpectMergedInto(const MString& name) const {
        const MProgramResult result = InstallSilently();
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_THAT(ReadHome(name), HasSubstr("New"));
        EXPECT_THAT(ReadHome(name), HasSubstr("Mine"));
    }

    static constexpr const char* Users = R"(<Set><preset name="Mine"/></Set>)";
};

TEST_F(PresetPermissionsTest, StayWithTheFileAndItsBackup) {
    ExpectMergedInto("to/Setpresets.xml");
    EXPECT_EQ(ReadHome("to/Setpresets.xmlbackup"), Users);
    for (const char* name : {"to/Setpresets.xml", "to/Setpresets.xmlbackup"})
        EXPECT_EQ(GetStatus(name).st_mode & 07777, 0600u) << name;
}

TEST_F(PresetPermissionsTest, AWriteProtectedFileStaysAndIsNamed) {
    SetMode("to/Setpresets.xml", 0444);
    const MProgramResult result = InstallSilently();
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_THAT(result.errors, HasSubstr(Text(InHome("to/Setpresets.xml")) + ": "));
    EXPECT_EQ(ReadHome("to/Setpresets.xml"), Users);
}

TEST_F(PresetPermissionsTest, ALinkStaysALink) {
    MFile::Rename(InHome("to/Setpresets.xml"), InHome("real.xml"));
    const MString link = InHome("to/Setpresets.xml");
    ASSERT_EQ(symlink("../real.xml", MNativePath(link).c_str()), 0);
    ASSERT_EQ(lchown(MNativePath(link).c_str(), GetStatus("real.xml").st_uid, static_cast<gid_t>(-1)), 0);
    ExpectMergedInto("real.xml");
    EXPECT_TRUE(MFile::IsLink(link));
    EXPECT_EQ(ReadHome("to/Setpresets.xmlbackup"), Users);
}

// The merge was dropped, and the last backup replaced by a copy of the file that had not changed.
TEST_F(PresetPermissionsTest, AFileThatCannotBeReplacedIsWrittenInPlace) {
    if (geteuid() != 0) GTEST_SKIP() << "needs a second user: run as root";
    ASSERT_EQ(chown(MNativePath(InHome("to")).c_str(), 0, 0), 0);
    ASSERT_EQ(chown(MNativePath(InHome("to/Setpresets.xml")).c_str(), 0, 0), 0);
    SetMode("to/Setpresets.xml", 0666);
    SetMode("to", 01777);
    ExpectMergedInto("to/Setpresets.xml");
    EXPECT_EQ(GetStatus("to/Setpresets.xml").st_uid, 0u);
    EXPECT_EQ(ReadHome("to/Setpresets.xmlbackup"), Users);
}
