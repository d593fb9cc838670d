#include "foundation/module/MPlatform.h"
#include "setup/MDataCheck.h"
#include "setup/MMD5Tool.h"
#include "setup/MSelfReplacement.h"
#include "setup/console/MTextDialogs.h"
#include "tests/setup/SetupFixture.h"

namespace {

/// Says yes or no and counts how often it was asked.
class OneAnswer final : public MTextDialogs {
public:
    explicit OneAnswer(bool answer) : answer(answer) {}
    bool AskYesNo(const MString& text) override {
        ++questions;
        question = text;
        return answer;
    }
    MRetryAnswer AskRetry(const MString&) override { return MRetryAnswer::Refuse; }
    void ShowText(const MString&, const MString& text) override { shown = text; }
    void ShowError(const MString& text) override { error = text; }

    bool answer;
    int32_t questions = 0;
    MString question;
    MString shown;
    MString error;
};

// The digest of "abc" in RFC 1321.
const char* const DigestOfAbc = "900150983CD24FB0D6963F7D28E17F72";

}  // namespace

class DataCheckTest : public SetupTest {};

TEST_F(DataCheckTest, AsksOnlyWhenTheCompanionTellsOfDamage) {
    const MString data = scratch.WriteFile("setup.dat", "abc");
    struct {
        const char* companion;
        bool isAsked;
    } const cases[] = {
        {DigestOfAbc, false},
        {"900150983cd24fb0d6963f7d28e17f72\r\n", false},
        {"", false},
        {"00000000000000000000000000000000\n", true},
    };
    for (const auto& [companion, isAsked] : cases) {
        scratch.WriteFile("setup.dat.md5", companion);
        for (const bool answer : {true, false}) {
            OneAnswer dialogs(answer);
            EXPECT_EQ(MCheckDataFile(data, dialogs), !isAsked || answer) << companion;
            EXPECT_EQ(dialogs.questions, isAsked ? 1 : 0) << companion;
        }
    }
    MFile::Delete(scratch.Join("setup.dat.md5"));
    OneAnswer dialogs(false);
    EXPECT_TRUE(MCheckDataFile(data, dialogs));
}

TEST_F(DataCheckTest, OneQuestionNamesEveryCorruptPart) {
    const MString index = scratch.Join("setup.multi");
    MMultiFileStream writer;
    writer.Create(index, 3);
    writer.Write("abcdefghi", 9);
    writer.Close();
    MMultiFileStream parts;
    OneAnswer untouched(false);
    EXPECT_TRUE(MCheckFileSet(index, parts, untouched));
    EXPECT_EQ(untouched.questions, 0);
    EXPECT_TRUE(parts.IsOpen());

    scratch.WriteFile("setup.multi1.cab", "abX");
    scratch.WriteFile("setup.multi3.cab", "gh");
    for (const bool answer : {true, false}) {
        OneAnswer dialogs(answer);
        EXPECT_EQ(MCheckFileSet(index, parts, dialogs), answer);
        EXPECT_EQ(dialogs.questions, 1);
        EXPECT_EQ(
            Text(dialogs.question),
            "We are very sorry, but following files are corrupt:\n setup.multi1.cab\nsetup.multi3.cab\n"
            "Please check your internet connection and redownload the corrupt files again.Note that it is "
            "highly recommended to use a downloader application instead of your browser if you are using "
            "a problematic browser such as Safari.\n\nDo you want to try to install the software anyway?");
    }
    OneAnswer dialogs(true);
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
    OneAnswer dialogs(false);
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
