#include "foundation/module/MPlatform.h"
#include "setup/MDataCheck.h"
#include "setup/MMD5Tool.h"
#include "setup/MSelfReplacement.h"
#include "tests/setup/SetupFixture.h"
#include "tests/support/MTestBytes.h"

namespace {

// The digest of "abc" in RFC 1321.
const char* const DigestOfAbc = "900150983CD24FB0D6963F7D28E17F72";

}  // namespace

class DataCheckTest : public SetupTest {};

TEST_F(DataCheckTest, AsksOnlyWhenTheCompanionTellsOfDamage) {
    const MString data = scratch.Join("setup.dat");
    const std::string large = MTestNoise(2 * 0x100000 + 17);
    const std::tuple<std::string, std::string, bool> cases[] = {
        {"abc", DigestOfAbc, false},
        {"abc", "900150983cd24fb0d6963f7d28e17f72\r\n", false},
        {"abc", "", false},
        {"abc", "00000000000000000000000000000000\n", true},
        {large, MTestDigest(large), false},
    };
    for (const auto& [content, companion, isAsked] : cases) {
        scratch.WriteFile("setup.dat", content);
        scratch.WriteFile("setup.dat.md5", companion);
        for (const bool answer : {true, false}) {
            MTestDialogs dialogs(answer);
            EXPECT_EQ(MCheckDataFile(data, dialogs), !isAsked || answer) << companion;
            EXPECT_EQ(dialogs.questions, isAsked ? 1 : 0) << companion;
        }
    }
    MFile::Delete(scratch.Join("setup.dat.md5"));
    MTestDialogs dialogs(false);
    EXPECT_TRUE(MCheckDataFile(data, dialogs));
}

TEST_F(DataCheckTest, OneQuestionNamesEveryCorruptPart) {
    const MString index = scratch.Join("setup.multi");
    MMultiFileStream writer;
    writer.Create(index, 3);
    writer.Write("abcdefghi", 9);
    writer.Close();
    MMultiFileStream parts;
    MTestDialogs untouched(false);
    EXPECT_TRUE(MCheckFileSet(index, parts, untouched));
    EXPECT_EQ(untouched.questions, 0);
    EXPECT_TRUE(parts.IsOpen());

    scratch.WriteFile("setup.multi1.cab", "abX");
    scratch.WriteFile("setup.multi3.cab", "gh");
    for (const bool answer : {true, false}) {
        MTestDialogs dialogs(answer);
        EXPECT_EQ(MCheckFileSet(index, parts, dialogs), answer);
        EXPECT_EQ(dialogs.questions, 1);
        EXPECT_EQ(
            Text(dialogs.question),
            "We are very sorry, but following files are corrupt:\n setup.multi1.cab\nsetup.multi3.cab\n"
            "Please check your internet connection and redownload the corrupt files again.Note that it is "
            "highly recommended to use a downloader application instead of your browser if you are using "
            "a problematic browser such as Safari.\n\nDo you want to try to install the software anyway?");
    }
    MTestDialogs dialogs(true);
    for (const char* missing : {"setup.multi2.cab", "setup.multi"}) {
        MFile::Delete(scratch.Join(missing));
        EXPECT_EQ(FailureOf([&] { (void)MCheckFileSet(index, parts, dialogs); }),
                  "0: Setup data file is corrupt or missing. Please make sure all parts of the installation "
                  "package (usually CAB files) are available and present in the same directory as the setup "
                  "application.");
    }
}

TEST_F(DataCheckTest, TheToolWritesTheCompanionThatTheCheckReads) {
    const MString data = scratch.WriteFile(MDecodeUTF8Exact("ž.dat"), "abc");
    MTestDialogs dialogs(false);
    MConsoleStream console;
    MList<MString> arguments;
    arguments.Add("md5");
    arguments.Add(data);
    MRunMD5Tool(arguments, console, dialogs);
    EXPECT_EQ(MReadTestFile(data + ".md5"), std::string(DigestOfAbc) + "\n");
    EXPECT_EQ(Text(dialogs.shown), DigestOfAbc);
    arguments[1] = scratch.Join("missing");
    MRunMD5Tool(arguments, console, dialogs);
    EXPECT_EQ(Text(dialogs.error),
              "File \"" + InScratch("missing") + "\" could not be open. Make sure it exists.");
}

TEST_F(DataCheckTest, SelfReplacementOverwritesTheInstalledProgramButNeverItself) {
    const MString name = MString("setup.") + MPlatform::ExecutableExtension();
    const MString installed = scratch.WriteFile(name, "old");
    const MString update = scratch.WriteFile("updatesetup", "new program");
    MReplaceInstalledSetup(update);
    EXPECT_EQ(MReadTestFile(installed), "new program");
    MReplaceInstalledSetup(installed);
    EXPECT_EQ(MReadTestFile(installed), "new program");
}
