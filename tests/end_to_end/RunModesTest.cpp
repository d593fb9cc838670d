#include "tests/end_to_end/EndToEndFixture.h"

class RunModesTest : public EndToEndTest {
protected:
    /// A product of one file in the given form beside the bare program, which is its installer.
    void PackBeside(const MString& output, std::initializer_list<const char*> options) {
        scratch.WriteFile("product/noise", noise);
        PackAs(InHome(output), "name=\"Test Product\"", ToDestination("noise"), options);
        MFile::Rename(PutProgram("setup"), GetInstaller());
    }
    void ExpectInstalled() const {
        const MProgramResult result = InstallSilently();
        ASSERT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ(result.errors, "");
        EXPECT_TRUE(ReadHome("to/noise") == noise);
        MFile::DeleteTree(InHome("to"));
    }
    void ExpectRefused(const std::string& told) const {
        const MProgramResult result = InstallSilently();
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.errors, testing::StartsWith(told));
        EXPECT_FALSE(IsInHome("to"));
    }

    const std::string noise = MTestNoise(200000);
    const std::string lastResort =
        "There are no installer data availble. The installer is probably corrupt, please download it again.\n";
};

TEST_F(RunModesTest, ABareProgramHasNoData) {
    EXPECT_THAT(StartWithoutDisplay(PutProgram("setup")), testing::AnyOf("", lastResort));
    MFile::Rename(GetRemover(""), GetInstaller());
    ExpectRefused(lastResort);
}

TEST_F(RunModesTest, InstallsFromDataBesideTheProgramUnlessTheyAreDamaged) {
    PackBeside("setup.dat", {"--form", "dat"});
    ExpectInstalled();
    EXPECT_THAT(StartWithoutDisplay(GetInstaller()), SaysWhatToDo("silent accept-licence"));
    std::string data = ReadHome("setup.dat");
    data[0] = static_cast<char>(data[0] ^ 1);
    scratch.WriteFile("home/setup.dat", data);
    ExpectRefused("We are very sorry, but the installer is corrupt.");
    // Nobody answers: the question counts as declined.
    if (MPlatform::GetName() == "windows") return;
    EXPECT_EQ(static_cast<int8_t>(Install({}).exitCode), -1);
}

TEST_F(RunModesTest, InstallsFromPartsBesideTheIndexAndAboveUnlessTheyAreDamaged) {
    PackBeside("setup.multi", {"--form", "multi", "--part-size", "64K"});
    ExpectInstalled();
    for (const char* name : {"setup.multi1.cab", "setup.multi4.cab"})
        MFile::Rename(InHome(name), scratch.Join(name));
    ExpectInstalled();
    std::string part = ReadHome("setup.multi2.cab");
    part[1000] = static_cast<char>(part[1000] ^ 1);
    scratch.WriteFile("home/setup.multi2.cab", part);
    ExpectRefused(
        "We are very sorry, but following files are corrupt:\n setup.multi2.cab\nPlease check your");
    MFile::Delete(InHome("setup.multi2.cab"));
    ExpectRefused(lastResort);
}

TEST_F(RunModesTest, APayloadWinsOverTheStateOfAnInstallation) {
    scratch.WriteFile("product/noise", noise);
    Pack(ToDestination("noise"));
    scratch.WriteFile("home/setup.state", "<install/>");
    ExpectInstalled();
}

TEST_F(RunModesTest, AnInstalledCopyRemovesOrReplacesTheProgram) {
    const MString program = PutProgram("updatesetup");
    EXPECT_THAT(StartWithoutDisplay(program), testing::AnyOf("", lastResort));
    scratch.WriteFile("home/setup.state", "<install/>");
    EXPECT_THAT(StartWithoutDisplay(program, {"UPDATE"}), SaysWhatToDo("silent update"));
    EXPECT_EQ(Start(program, {}).exitCode, 0);
    EXPECT_EQ(MReadTestFile(GetRemover("")), MReadTestFile(SETUP_PROGRAM));
    EXPECT_THAT(StartWithoutDisplay(GetRemover("")), SaysWhatToDo("silent"));
}

TEST_F(RunModesTest, TheMD5ToolHashesDataOfTheCurrentDirectory) {
    if (MPlatform::GetName() == "windows") GTEST_SKIP() << "shows what it found in a window";
    const MString program = PutProgram("tool");
    scratch.WriteFile("home/setup.dat", "abc");
    OpenForEverybody(InHome("setup.dat"));
    const MProgramResult result = Start(program, ToList({"MD5"}));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output, HasSubstr("Resulting hash: 900150983CD24FB0D6963F7D28E17F72\n"
                                         "Resulting MD5 hash is 900150983CD24FB0D6963F7D28E17F72\n"));
    EXPECT_EQ(ReadHome("setup.dat.md5"), "900150983CD24FB0D6963F7D28E17F72\n");
    const MProgramResult failed = Start(program, ToList({"md5", "missing"}));
    EXPECT_EQ(failed.errors, "File \"missing\" could not be open. Make sure it exists.\n");
    EXPECT_EQ(failed.exitCode, 0);
    EXPECT_THAT(failed.output, testing::Not(HasSubstr("Processing")));
    const MProgramResult refused = Start(program, ToList({"silent", "md5", "setup.dat"}));
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_THAT(refused.errors, HasSubstr("silent and md5"));
    EXPECT_EQ(refused.output, "");
}
