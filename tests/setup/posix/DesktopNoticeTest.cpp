#include "setup/MDesktopNotice.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestVariable.h"

#include <chrono>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Programs of a desktop in a folder of the PATH, in a process without a terminal.
class DesktopNoticeTest : public testing::Test {
protected:
    DesktopNoticeTest() { dup2(nowhere, STDERR_FILENO); }
    ~DesktopNoticeTest() noexcept override {
        dup2(errors, STDERR_FILENO);
        for (const int file : {errors, nowhere}) close(file);
    }
    /// `end`: what it does after it has written down its words.
    void Put(const char* program, const std::string& end) const {
        const std::string path = Text(scratch.WriteFile(
            program, "#!/bin/sh\nprintf '[%s]' \"$@\" > " + Text(scratch.Join("told")) + "\n" + end + "\n"));
        chmod(path.c_str(), 0755);
    }

    const int errors = dup(STDERR_FILENO);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    MScratch scratch;
    MTestVariable path{"PATH", Text(scratch.GetPath()) + ":/usr/bin:/bin"};
};

TEST_F(DesktopNoticeTest, HandsEveryWordOnAsItIs) {
    Put("notify-send", "exit 0");
    MNotifyDesktop("-A $(title)", MDecodeUTF8Exact("It's \"x\"; `y`\nž"));
    EXPECT_EQ(scratch.ReadFile("told"), "[--app-name=Corvanth][--][-A $(title)][It's \"x\"; `y`\nž]");
    Put("notify-send", "exit 1");
    Put("gdbus", "exit 0");
    MNotifyDesktop("a", "\"\\");
    EXPECT_THAT(scratch.ReadFile("told"), testing::HasSubstr("[\"a\"][\"\\\"\\\\\"][@as []]"));
}

TEST_F(DesktopNoticeTest, WaitsForNobody) {
    Put("notify-send", "exec sleep 60");
    Put("gdbus", "exit 1");
    const auto start = std::chrono::steady_clock::now();
    MNotifyDesktop("a", "b");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
