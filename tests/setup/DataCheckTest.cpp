#include "foundation/files/MInstallationNames.h"
#include "setup/MDataCheck.h"
#include "setup/MSelfReplacement.h"
#include "tests/setup/SetupFixture.h"
#include "tests/support/MTestBytes.h"

using DataCheckTest = SetupTest;

TEST_F(DataCheckTest, AsksOnlyWhenTheCompanionTellsOfDamage) {
    const MString data = scratch.Join("setup.dat");
    const std::string large = MTestNoise(2 * 0x100000 + 17);
    const std::tuple<std::string, std::string, bool> cases[] = {
        {"abc", "900150983CD24FB0D6963F7D28E17F72", false},  // RFC 1321
        {"abc", "900150983cd24fb0d6963f7d28e17f72\r\n", false},
        {"abc", "", false},
        {"abc", "\n", true},
        {"abc", "00000000000000000000000000000000\n", true},
        {large, MTestDigest(large), false},
    };
    for (const auto& [content, companion, isAsked] : cases) {
        scratch.WriteFile("setup.dat", content);
        scratch.WriteFile("setup.dat.md5", companion);
        for (const bool answer : {true, false}) {
            MTestDialogs dialogs(answer);
            EXPECT_EQ(MCheckDataFile(data, dialogs), !isAsked || answer) << companion;
            EXPECT_EQ(!dialogs.question.IsEmpty(), isAsked) << companion;
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
    MTestDialogs dialogs(false);
    EXPECT_TRUE(MCheckFileSet(index, parts, dialogs));

    scratch.WriteFile("setup.multi1.cab", "abX");
    scratch.WriteFile("setup.multi3.cab", "gh");
    EXPECT_FALSE(MCheckFileSet(index, parts, dialogs));
    dialogs.answer = true;
    EXPECT_TRUE(MCheckFileSet(index, parts, dialogs));
    EXPECT_EQ(Text(dialogs.question),
              "We are very sorry, but following files are corrupt:\n setup.multi1.cab\nsetup.multi3.cab\n"
              "Please check your internet connection and redownload the corrupt files again.Note that it is "
              "highly recommended to use a downloader application instead of your browser if you are using "
              "a problematic browser such as Safari.\n\nDo you want to try to install the software anyway?");
    for (const char* missing : {"setup.multi2.cab", "setup.multi"}) {
        MFile::Delete(scratch.Join(missing));
        EXPECT_EQ(FailureOf([&] { (void)MCheckFileSet(index, parts, dialogs); }),
                  "0: Setup data file is corrupt or missing. Please make sure all parts of the installation "
                  "package (usually CAB files) are available and present in the same directory as the setup "
                  "application.");
    }
}

TEST_F(DataCheckTest, SelfReplacementOverwritesTheInstalledProgramButNeverItself) {
    const MString installed = MGetSetupPath(scratch.GetPath());
    MWriteTestFile(installed, "old");
    const MString update = scratch.WriteFile("updatesetup", "new program");
    MReplaceInstalledSetup(update);
    EXPECT_EQ(MReadTestFile(installed), "new program");
    MReplaceInstalledSetup(installed);
    EXPECT_EQ(MReadTestFile(installed), "new program");
}
