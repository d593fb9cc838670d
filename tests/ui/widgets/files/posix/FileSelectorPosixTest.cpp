#include "tests/ui/widgets/files/FileSelectorFixture.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST_F(FileSelectorTest, IsNotLedAroundInCircles) {
    ASSERT_EQ(symlink(".", Text(scratch.Join("a/loop")).c_str()), 0);
    Go("a/loop/loop/inner");
    EXPECT_EQ(GetFiles(), "deep.txt ");
    EXPECT_EQ(GetFolders(), "a inner loop inner loop inner* loop b ");
    // Deleting a link leaves what it leads to.
    Go("a");
    Choose("loop");
    user.PressKey(MKeyDelete);
    WaitUntil([&] { return !MFile::Exists(scratch.Join("a/loop")); });
    EXPECT_EQ(scratch.ReadFile("a/inner/deep.txt"), "1");
}

TEST_F(FileSelectorTest, DoesNotWaitForSettingsThatNeverCome) {
    // Reading a pipe would take for ever, and writing through a link would change something else.
    ASSERT_EQ(mkfifo(Text(scratch.Join("a/.dirsettings")).c_str(), 0600), 0);
    Go("a");
    EXPECT_EQ(GetFiles(), "inner ");
    ASSERT_EQ(symlink("../one.txt", Text(scratch.Join("b/.dirsettings")).c_str()), 0);
    Go("b");
    list.SetOrder(MFolderSettings::Order::Time);
    WaitForFolders();
    MPlatform::Sleep(20);
    EXPECT_EQ(scratch.ReadFile("one.txt"), "12345");
}

TEST_F(FileSelectorTest, ShowsManyFilesAtOnce) {
    MFile::CreateDirectory(scratch.Join("many"));
    for (int32_t i = 0; i < 20000; ++i) {
        std::FILE* const file =
            std::fopen((Text(scratch.Join("many")) + "/f" + std::to_string(i)).c_str(), "w");
        ASSERT_NE(file, nullptr);
        std::fclose(file);
    }
    Go("many");
    EXPECT_EQ(list.GetItemCount(), 20000);
    Choose("f19999");
    EXPECT_EQ(list.GetSelectedPath().Substring(scratch.GetPath().GetLength()), "/many/f19999");
}

TEST_F(FileSelectorTest, IsNotHeldUpByAVolumeThatDoesNotAnswer) {
    // What happens there for minutes, or for ever: the thread waits.
    std::string told;
    MAwaitedTask task;
    task.Begin([] { MPlatform::Sleep(300); }, [&] { told += "dropped "; });
    task.Begin([] { MPlatform::Sleep(200); }, [&] { told += "slow "; });
    EXPECT_TRUE(task.IsRunning());
    WaitUntil([&] { return !task.IsRunning(); });
    task.Begin([] {}, [&] { told += "fast "; });
    EXPECT_EQ(told, "slow fast ");
}

}  // namespace
