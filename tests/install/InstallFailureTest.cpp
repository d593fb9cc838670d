#include "install/engine/MInstallRetry.h"
#include "tests/install/InstallFixture.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class InstallFailureTest : public InstallTest {
protected:
    /// "first" can be written, "blocked" cannot since a directory that holds something has its name, and
    /// "last" can.
    void DefineBlocked() {
        Define(Files("", File("first", "1") + File("blocked", "2") + File("last", "3")));
        Put("blocked/inside", "in the way");
    }
};

TEST_F(InstallFailureTest, RefusingEndsTheRunAndKeepsWhatWasWritten) {
    DefineBlocked();
    const std::string failure = FailureOf([this] { Perform(); });
    EXPECT_THAT(failure, StartsWith("101: File \""));
    EXPECT_THAT(failure,
                EndsWith("\" could not be created. Make sure there is no write-protected file already "
                         "existing."));
    EXPECT_THAT(
        dialogs.questions,
        testing::ElementsAre(Place(
            "Could not rewrite file\n\n{to}/blocked\n\n Do you want to try again? If you select \"No\", "
            "the installation will abort. If you select ignore, the installation will continue without "
            "creating the file.")));
    EXPECT_EQ(Read("first"), "1");
    EXPECT_FALSE(Exists("last"));
    EXPECT_THAT(ReadLog(), EndsWith("File could NOT been created. Terminating.\n"));
}

TEST_F(InstallFailureTest, IgnoringLeavesTheFileOut) {
    DefineBlocked();
    dialogs.answers = {MRetryAnswer::Ignore};
    Perform();
    EXPECT_EQ(Read("last"), "3");
    EXPECT_EQ(processor->GetProgress().itemIndex, 2);
    EXPECT_THAT(ReadLog(), HasSubstr("File could NOT been created. Ignoring.\nFile not open!\n"));
}

TEST_F(InstallFailureTest, RetryingSucceedsOnceTheWayIsFree) {
    DefineBlocked();
    dialogs.answers = {MRetryAnswer::Retry, MRetryAnswer::Retry};
    dialogs.onQuestion = [this] {
        if (dialogs.questions.size() == 2) MFile::DeleteTree(InTarget("blocked"));
    };
    Perform();
    EXPECT_EQ(dialogs.questions.size(), 2u);
    EXPECT_EQ(Read("blocked"), "2");
    EXPECT_EQ(processor->GetProgress().itemIndex, 3);
}

TEST_F(InstallFailureTest, AFontInUseIsPassedOverWithoutQuestionANewOneIsNot) {
    Define(Files("", File("sans.ttf", "font") + "<dir name=\"file\">" + File("new.ttf", "font") + "</dir>" +
                         File("last", "3")));
    Put("sans.ttf/inside", "in the way");
    Put("file", "in the way");
    dialogs.answers = {MRetryAnswer::Ignore};
    Perform();
    ASSERT_EQ(dialogs.questions.size(), 1u);
    EXPECT_THAT(dialogs.questions[0], HasSubstr("new.ttf"));
    EXPECT_EQ(Read("last"), "3");
}

TEST_F(InstallFailureTest, DamagedOrShortContentEndsTheRun) {
    const std::string first = File("first", "1");
    for (const char* range : {R"(filestart="3" filesize="5")", R"(filestart="0" filesize="50000")"}) {
        Define(Files("", first + "<file name=\"damaged\" op=\"create\" " + range + "/>" + File("last", "3")));
        EXPECT_THROW(Perform(), MException) << range;
        EXPECT_EQ(Read("first"), "1");
        EXPECT_TRUE(Exists("damaged"));
        EXPECT_FALSE(Exists("last"));
        EXPECT_THAT(ReadLog(), EndsWith("Error writing the file\n"));
    }
}

TEST_F(InstallFailureTest, ADirectoryThatCannotBeMadeEndsTheRunWhileCounting) {
    Define(Files("/file/below", File("f", "1")));
    Put("file", "in the way");
    EXPECT_THAT(FailureOf([this] { Perform(); }), StartsWith("0: Could not create path \""));
    EXPECT_EQ(Read("file"), "in the way");
}

TEST_F(InstallFailureTest, SizesThatCannotBeEndTheRunWhileCounting) {
    const std::string largest = R"(<file name="a" op="create" filesize="9223372036854775807"/>)";
    const std::string first = File("first", "1");
    for (const std::string& files : {Files("", first + R"(<file name="a" op="update" filesize="-1"/>)"),
                                     Files("", first + largest), Files("", first) + Files("/a", largest),
                                     Files("", R"(<copy enabled="1" currentpath="{to}/b"/>)" + largest)}) {
        Define(files);
        EXPECT_THAT(FailureOf([this] { Perform(); }), HasSubstr("cannot be a size")) << files;
        EXPECT_FALSE(Exists("first"));
    }
}

TEST_F(InstallFailureTest, WhatIsHeldForMomentsIsTriedTenTimesInSilence) {
    for (const int32_t needed : {3, 20}) {
        int32_t attempts = 0;
        MInstallRetry([&] {
            if (++attempts < needed) throw MException(MString(), "held", 0);
        });
        EXPECT_EQ(attempts, std::min(needed, 10));
    }
}
