#include "tests/end_to_end/EndToEndFixture.h"

#include <unistd.h>

/// What only a system with limits, owners and signals can do to a run.
class DiskFaultsTest : public EndToEndTest {
protected:
    void PackNoise(const char* compression) {
        scratch.WriteFile("product/files/a-first", "small");
        scratch.WriteFile("product/files/b-noise", MTestNoise(3000000));
        scratch.WriteFile("product/files/c-last", "small");
        Pack(ToDestination("files"), {"--compression", compression});
    }
    /// Runs the installer behind a shell command that ends in `"$@"`.
    [[nodiscard]] MProgramResult InstallBehind(const char* command) const {
        MList<MString> arguments = ToList({"-c", command, "sh"});
        arguments.Add(GetInstaller());
        for (const char* word : {"silent", "directory:destination=to"}) arguments.Add(word);
        return Start("/bin/sh", arguments);
    }
};

TEST_F(DiskFaultsTest, AFullDiskIsToldAndLeavesNoState) {
    for (const char* compression : {"none", "bzip2"}) {
        PackNoise(compression);
        // Files cannot grow beyond 1,000 blocks of 512 bytes: the system refuses the write as on a full disk.
        const MProgramResult result = InstallBehind("ulimit -f 1000; exec \"$@\"");
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.errors, HasSubstr("Error writing to file \"" + Text(InHome("to/b-noise")) +
                                             "\". Probably disk full."));
        EXPECT_EQ(ReadHome("to/a-first"), "small");
        EXPECT_TRUE(IsInHome("to/b-noise"));
        EXPECT_FALSE(IsInHome("to/c-last"));
        EXPECT_FALSE(IsInHome("to/setup.state"));
    }
}

TEST_F(DiskFaultsTest, ADestinationOfSomebodyElseIsRefusedByTheSystem) {
    if (geteuid() != 0) GTEST_SKIP() << "needs a second user: run as root";
    PackNoise("bzip2");
    MFile::CreatePath(InHome("to"));
    const MProgramResult result = InstallSilently();
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.errors, HasSubstr("Could not rewrite file\n\n" + Text(InHome("to/a-first"))));
    EXPECT_THAT(result.errors, HasSubstr("\" could not be created."));
    EXPECT_EQ(MFile::GetFileList(InHome("to")).GetCount(), 0);
    const MProgramResult below = Install({"silent", "directory:destination=to/below"});
    EXPECT_EQ(below.exitCode, 1);
    EXPECT_THAT(below.errors, HasSubstr("Could not create path \"" + Text(InHome("to/below")) + "\"."));
}

TEST_F(DiskFaultsTest, WhoMayNotRemoveIsToldAsWhomToDoIt) {
    if (geteuid() != 0) GTEST_SKIP() << "needs a second user: run as root";
    PackNoise("none");
    ASSERT_EQ(InstallSilently().exitCode, 0);
    ASSERT_EQ(chown(Text(InHome("to")).c_str(), 0, 0), 0);
    const MProgramResult refused = Start(GetRemover("to"), ToList({"silent"}));
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_THAT(refused.errors, HasSubstr("can only be removed by the user root"));
    EXPECT_EQ(ReadHome("to/a-first"), "small");
    EXPECT_TRUE(IsInHome("to/setup.state"));
}

TEST_F(DiskFaultsTest, ProgramsCanBeStartedAndOtherFilesCannot) {
    scratch.WriteFile("product/files/tool", "#!/bin/sh\nexit 7\n");
    scratch.WriteFile("product/files/text", "plain");
    Pack(ToDestination("files"));
    ASSERT_EQ(InstallSilently().exitCode, 0);
    EXPECT_EQ(Start(InHome("to/tool"), {}).exitCode, 7);
    EXPECT_NE(access(Text(InHome("to/text")).c_str(), X_OK), 0);
}
