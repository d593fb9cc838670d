#include "tests/end_to_end/EndToEndFixture.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

/// What only a system with limits, owners and signals can do to a run.
class DiskFaultsTest : public EndToEndTest {
protected:
    ~DiskFaultsTest() noexcept override = default;

    void PackNoise(const char* compression) {
        std::string noise(3000000, '\0');
        uint32_t state = 1;
        for (char& byte : noise) byte = static_cast<char>((state = state * 214013 + 2531011) >> 16);
        scratch.WriteFile("product/files/a-first", "small");
        scratch.WriteFile("product/files/b-noise", noise);
        scratch.WriteFile("product/files/c-last", "small");
        Pack("<directory id=\"destination\" name=\"D\" default=\"unused\"/>"
             "<files path=\"files\" destination=\"{destination}\" required=\"1\"/>",
             {"--compression", compression});
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
        const MProgramResult result = InstallBehind("trap '' XFSZ; ulimit -f 1000; exec \"$@\"");
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_NE(result.errors.find("Error writing to file \"" + Text(InHome("to/b-noise")) +
                                     "\". Probably disk full."),
                  std::string::npos)
            << result.errors;
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
    const MProgramResult result = Install({"silent", "directory:destination=to"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find("Could not rewrite file\n\n" + Text(InHome("to/a-first"))),
              std::string::npos);
    EXPECT_NE(result.errors.find("\" could not be created."), std::string::npos) << result.errors;
    EXPECT_EQ(MFile::GetFileList(InHome("to")).GetCount(), 0);
    const MProgramResult below = Install({"silent", "directory:destination=to/below"});
    EXPECT_EQ(below.exitCode, 1);
    EXPECT_NE(below.errors.find("Could not create path \"" + Text(InHome("to/below")) + "\"."),
              std::string::npos);
}

TEST_F(DiskFaultsTest, AKilledRunLeavesNoStateAndTheNextOneCompletesIt) {
    PackNoise("bzip2");
    int32_t killed = 0;
    for (int32_t milliseconds = 1; milliseconds < 300; milliseconds += 23) {
        const std::string command =
            "\"$@\" & sleep " + std::to_string(milliseconds / 1000.0) + "; kill -9 $! 2>/dev/null; wait $!";
        const MProgramResult result = InstallBehind(command.c_str());
        const bool isComplete = IsInHome("to/setup.state");
        EXPECT_TRUE(isComplete || result.exitCode != 0);
        if (!isComplete) {
            ++killed;
            continue;
        }
        EXPECT_EQ(ReadHome("to/b-noise").size(), 3000000u);
        EXPECT_EQ(ReadHome("to/c-last"), "small");
        MFile::Delete(InHome("to/setup.state"));
    }
    EXPECT_GT(killed, 0);
    ASSERT_EQ(Install({"silent", "directory:destination=to"}).exitCode, 0);
    EXPECT_EQ(ReadHome("to/b-noise"), scratch.ReadFile("product/files/b-noise"));
    EXPECT_TRUE(IsInHome("to/setup.state"));
}

TEST_F(DiskFaultsTest, ProgramsCanBeStartedAndOtherFilesCannot) {
    scratch.WriteFile("product/files/tool", "#!/bin/sh\nexit 7\n");
    scratch.WriteFile("product/files/text", "plain");
    Pack("<directory id=\"destination\" name=\"D\" default=\"unused\"/>"
         "<files path=\"files\" destination=\"{destination}\" required=\"1\"/>");
    ASSERT_EQ(Install({"silent", "directory:destination=to"}).exitCode, 0);
    EXPECT_EQ(Start(InHome("to/tool"), {}).exitCode, 7);
    EXPECT_NE(access(Text(InHome("to/text")).c_str(), X_OK), 0);
}
