#include "tests/install/InstallFixture.h"

namespace {

const char* const Enabled = "<files enabled=\"1\" destination=\"x\" currentpath=\"{to}\">";

}  // namespace

class InstallFailureTest : public InstallTest {
protected:
    /// "first" can be written, "blocked" cannot since a directory that holds something has its name, and "last" can.
    void DefineBlocked() {
        Define(std::string(Enabled) + File("first", "1") + File("blocked", "2") + File("last", "3") +
               "</files>");
        Put("blocked/inside", "in the way");
    }
    void Unblock() { MFile::DeleteTree(MFile::Join(GetTarget(), "blocked")); }
};

TEST_F(InstallFailureTest, RefusingEndsTheRunAndKeepsWhatWasWritten) {
    DefineBlocked();
    try {
        Perform();
        FAIL();
    } catch (const MException& exception) {
        EXPECT_TRUE(exception.GetMessage().StartsWith("File \""));
        EXPECT_TRUE(exception.GetMessage().EndsWith(
            "\" could not be created. Make sure there is no write-protected file already existing."));
    }
    ASSERT_EQ(dialogs.questions.GetCount(), 1);
    const MString question =
        MString("Could not rewrite file\n\n") + GetTarget() +
        "/blocked\n\n Do you want to try again? If you select \"No\", the installation will abort. "
        "If you select ignore, the installation will continue without creating the file.";
    EXPECT_TRUE(dialogs.questions[0].IsExactly(question));
    EXPECT_EQ(Read("first"), "1");
    EXPECT_FALSE(Exists("last"));
    EXPECT_TRUE(MString(ReadLog().c_str()).EndsWith("File could NOT been created. Terminating.\n"));
}

TEST_F(InstallFailureTest, IgnoringLeavesTheFileOut) {
    DefineBlocked();
    dialogs.answers = {MRetryAnswer::Ignore};
    Perform();
    EXPECT_EQ(Read("last"), "3");
    EXPECT_EQ(processor->GetProgress().itemIndex, 2);
    const std::string log = ReadLog();
    EXPECT_NE(log.find("File could NOT been created. Ignoring.\nFile not open!\n"), std::string::npos);
}

TEST_F(InstallFailureTest, RetryingSucceedsOnceTheWayIsFree) {
    DefineBlocked();
    dialogs.answers = {MRetryAnswer::Retry, MRetryAnswer::Retry};
    dialogs.onRetry = [this] {
        if (dialogs.questions.GetCount() == 2) Unblock();
    };
    Perform();
    EXPECT_EQ(dialogs.questions.GetCount(), 2);
    EXPECT_EQ(Read("blocked"), "2");
    EXPECT_EQ(processor->GetProgress().itemIndex, 3);
}

TEST_F(InstallFailureTest, AFontInUseIsPassedOverWithoutQuestion) {
    Define(std::string(Enabled) + File("sans.ttf", "font") + File("last", "3") + "</files>");
    Put("sans.ttf/inside", "in the way");
    Perform();
    EXPECT_EQ(dialogs.questions.GetCount(), 0);
    EXPECT_EQ(Read("last"), "3");
}

TEST_F(InstallFailureTest, DamagedContentEndsTheRun) {
    payload = MTestPayload(7);
    const std::string first = File("first", "1");
    const std::string damaged = "<file name=\"damaged\" op=\"create\" filestart=\"3\" filesize=\"5\"/>";
    Define(std::string(Enabled) + first + damaged + File("last", "3") + "</files>");
    EXPECT_THROW(Perform(), MException);
    EXPECT_EQ(Read("first"), "1");
    EXPECT_EQ(Read("damaged"), "");
    EXPECT_FALSE(Exists("last"));
    EXPECT_NE(ReadLog().find("Error writing the file\n"), std::string::npos);
}

TEST_F(InstallFailureTest, ContentThatEndsTooEarlyIsNoSuccess) {
    payload = MTestPayload(0);
    (void)Item("short");
    Define(std::string(Enabled) +
           "<file name=\"f\" op=\"create\" filestart=\"0\" filesize=\"50000\"/></files>");
    EXPECT_THROW(Perform(), MException);
}

TEST_F(InstallFailureTest, ADirectoryThatCannotBeMadeEndsTheRunWhileCounting) {
    Define("<files enabled=\"1\" destination=\"x\" currentpath=\"{to}/file/below\">" + File("f", "1") +
           "</files>");
    Put("file", "in the way");
    try {
        Perform();
        FAIL();
    } catch (const MException& exception) {
        EXPECT_TRUE(exception.GetMessage().StartsWith("Could not create path \""));
    }
    EXPECT_EQ(Read("file"), "in the way");
}

/// Takes the target directory away when the first file is written.
class VanishingTarget final : public MTextView {
public:
    explicit VanishingTarget(const MString& directory) : directory(directory) {}
    void SetText(const MString&) override {
        if (++shown == 2) MFile::DeleteTree(directory);
    }

private:
    MString directory;
    int32_t shown = 0;
};

TEST_F(InstallFailureTest, ADestinationThatVanishesIsMadeAgain) {
    Define(std::string(Enabled) + File("first", "1") + "<dir name=\"d\">" + File("second", "2") +
           "</dir></files>");
    VanishingTarget view(GetTarget());
    MInstallViews views;
    views.fileText = &view;
    MInstallProcessor().Perform(library, &library, views, MRunKind::Install);
    EXPECT_FALSE(Exists("first"));
    EXPECT_EQ(Read("d/second"), "2");
}
