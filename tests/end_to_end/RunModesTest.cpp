#include "tests/end_to_end/EndToEndFixture.h"

namespace {

const char* const LastResort =
    "There are no installer data availble. The installer is probably corrupt, please download it again.";

}  // namespace

class RunModesTest : public EndToEndTest {
protected:
    ~RunModesTest() noexcept override = default;

    void PackData() {
        scratch.WriteFile("product/file.txt", "content");
        Pack("<directory id=\"destination\" name=\"D\" default=\"unused\"/>"
             "<files path=\"file.txt\" destination=\"{destination}\" required=\"1\"/>",
             {"--form", "dat"});
        MFile::Rename(GetInstaller(), InHome("setup.dat"));
        MFile::Rename(GetInstaller() + ".md5", InHome("setup.dat.md5"));
    }
    static void ExpectLine(const std::string& text, const std::string& line) {
        EXPECT_NE(text.find(line), std::string::npos) << text;
    }
};

TEST_F(RunModesTest, ABareProgramHasNoData) {
    const MString program = PutProgram("setup");
    MProgramResult result = Start(program, {});
    EXPECT_EQ(result.exitCode, 0);
    ExpectLine(result.errors, LastResort);
    result = Start(program, ToList({"silent"}));
    EXPECT_EQ(result.exitCode, 1);
    ExpectLine(result.errors, LastResort);
}

TEST_F(RunModesTest, InstallsFromDataBesideTheProgramUnlessTheyAreDamaged) {
    PackData();
    const MString program = PutProgram("Installer");
    MProgramResult result = Start(program, ToList({"silent", "directory:destination=to"}));
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    ExpectLine(result.output, "Checking installer integrity...");
    EXPECT_EQ(ReadHome("to/file.txt"), "content");
    MFile::DeleteTree(InHome("to"));

    std::string data = ReadHome("setup.dat");
    data[0] = static_cast<char>(data[0] ^ 1);
    scratch.WriteFile("home/setup.dat", data);
    result = Start(program, ToList({"silent", "directory:destination=to"}));
    EXPECT_EQ(result.exitCode, 1);
    ExpectLine(result.errors, "We are very sorry, but the installer is corrupt.");
    EXPECT_FALSE(IsInHome("to"));
    // Nobody answers: the question counts as declined.
    EXPECT_EQ(static_cast<int8_t>(Start(program, {}).exitCode), -1);
}

TEST_F(RunModesTest, ModesThatAreMissingSaySoInOneLine) {
    PackData();
    const MString program = PutProgram("setup");
    EXPECT_EQ(Start(program, {}).errors,
              "This build has no wizard window. To install, add the words: silent accept-licence\n");
    scratch.WriteFile("home/setup.state", "<install/>");
    EXPECT_EQ(Start(program, {}).errors,
              "This build has no window for removing. To remove the software, add the word: silent\n");
    EXPECT_EQ(Start(program, ToList({"UPDATE"})).errors, "This build has no update manager.\n");
}

TEST_F(RunModesTest, UpdateSetupReplacesTheInstalledProgramOnlyInAnInstallation) {
    const MString program = PutProgram("updatesetup");
    EXPECT_EQ(Start(program, {}).errors, std::string(LastResort) + "\n");
    scratch.WriteFile("home/setup.state", "<install/>");
    EXPECT_EQ(Start(program, {}).exitCode, 0);
    EXPECT_EQ(ReadHome(MString("setup.") + MPlatform::ExecutableExtension()), MReadTestFile(SETUP_PROGRAM));
}

TEST_F(RunModesTest, TheMD5ToolHashesDataOfTheCurrentDirectory) {
    const MString program = PutProgram("tool");
    scratch.WriteFile("home/setup.dat", "abc");
    OpenForEverybody(InHome("setup.dat"));
    const MProgramResult result = Start(program, ToList({"MD5"}));
    EXPECT_EQ(result.exitCode, 0);
    ExpectLine(result.output, "Resulting hash: 900150983CD24FB0D6963F7D28E17F72");
    EXPECT_EQ(ReadHome("setup.dat.md5"), "900150983CD24FB0D6963F7D28E17F72\n");
    const MProgramResult failed = Start(program, ToList({"md5", "missing"}));
    EXPECT_EQ(failed.exitCode, 0);
    EXPECT_EQ(failed.errors, "File \"missing\" could not be open. Make sure it exists.\n");
}
