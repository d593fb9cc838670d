#include "foundation/files/posix/MNativePath.h"
#include "tests/update/DownloadFixture.h"

#include <sys/stat.h>
#include <unistd.h>

TEST_F(DownloadTest, AFolderThatOthersMayWriteIsNotUsed) {
    MFile::CreatePath(target);
    ASSERT_EQ(chmod(MNativePath(target).c_str(), 0777), 0);
    EXPECT_EQ(FailureOfRun({first.GetAddress()}),
              "2: The folder \"" + Text(target) + "\" is not used: other users may write into it.");
    ASSERT_EQ(chmod(MNativePath(target).c_str(), 0755), 0);
    RunToTheEnd({first.GetAddress()});
}

TEST_F(DownloadTest, LinksAreReplacedAndNotWrittenThrough) {
    RunInPart(2);
    const MString names[] = {"big.bin", "downloader.dat", SmallFile.Substring(7)};
    MFile::CreatePath(scratch.Join("target/folder"));
    for (const MString& name : names) {
        const MString inTarget = scratch.Join("target/" + name);
        const MString outside = scratch.WriteFile("outside/" + MFile::GetFileName(name),
                                                  MFile::IsFile(inTarget) ? MReadTestFile(inTarget) : "kept");
        if (MFile::IsFile(inTarget)) MFile::Delete(inTarget);
        ASSERT_EQ(symlink(MNativePath(outside).c_str(), MNativePath(inTarget).c_str()), 0);
    }
    const std::string before =
        scratch.ReadFile("outside/big.bin") + scratch.ReadFile("outside/downloader.dat");
    (void)first.TakeRequests();
    MTestDownloadView view;
    EXPECT_TRUE(Run(view, {first.GetAddress()}));
    EXPECT_EQ(first.TakeRequests(), "INDEX.ZIP\nbig.1.zip\nbig.2.zip\nbig.3.zip\nbig.4.zip\nsmall.1.zip\n");
    EXPECT_EQ(scratch.ReadFile("outside/big.bin") + scratch.ReadFile("outside/downloader.dat"), before);
    MFile::DeleteTree(scratch.Join("outside"));
    ExpectComplete();
}

TEST_F(DownloadTest, ProgramsMayBeExecuted) {
    Publish(first, "<index>" + DescribeFile("big", "run", {"#!/b", "in/sh"}) +
                       DescribeFile("small", "text", {"hello"}) + "</index>");
    first.Put("/package/big.1.zip", MTestBody("#!/b"));
    first.Put("/package/big.2.zip", MTestBody("in/sh"));
    MTestDownloadView view;
    EXPECT_TRUE(Run(view, {first.GetAddress()}));
    EXPECT_EQ(access(MNativePath(scratch.Join("target/run")).c_str(), X_OK), 0);
    EXPECT_NE(access(MNativePath(scratch.Join("target/text")).c_str(), X_OK), 0);
}
