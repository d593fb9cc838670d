#include "foundation/files/MFileTrust.h"
#include "foundation/files/posix/MNativePath.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <sys/stat.h>
#include <unistd.h>

TEST(MFileTrustPosix, OnlyFoldersThatNobodyElseCanWriteAreOwn) {
    const MScratch scratch;
    const auto trustOf = [&](const char* name) { return MGetFolderTrust(scratch.Join(name)); };
    const auto native = [&](const char* name) { return MNativePath(scratch.Join(name)); };
    const mode_t before = umask(0);
    MCreateOwnPath(scratch.GetPath(), "a/./b\\c/");
    umask(before);
    scratch.WriteFile("a/file", "");
    EXPECT_EQ(scratch.ListTree(), "a/\na/b/\na/b/c/\na/file\n");
    EXPECT_EQ(trustOf("a/b/c"), MFolderTrust::Own);
    ASSERT_EQ(symlink("a/b", native("link").c_str()), 0);
    ASSERT_EQ(symlink("a/file", native("file-link").c_str()), 0);
    for (const char* name : {"link", "a/file", "missing"}) EXPECT_EQ(trustOf(name), MFolderTrust::NoFolder);
    EXPECT_TRUE(MIsPlainFile(scratch.Join("a/file")));
    for (const char* name : {"file-link", "a", "missing"}) EXPECT_FALSE(MIsPlainFile(scratch.Join(name)));
    EXPECT_EQ(FailureOf([&] { MCreateOwnPath(scratch.GetPath(), "link/d"); }),
              "0: The folder \"" + Text(scratch.Join("link")) + "\" is not used: it is a link or no folder.");
    EXPECT_EQ(scratch.ListTree().find("d/"), std::string::npos);

    for (const mode_t mode : {0757, 01777}) {
        ASSERT_EQ(chmod(native("a/b").c_str(), mode), 0);
        EXPECT_EQ(trustOf("a/b"), MFolderTrust::Shared);
    }
    if (geteuid() != 0) GTEST_SKIP() << "Only root can give folders away.";
    ASSERT_EQ(chmod(native("a/b").c_str(), 0775), 0);
    EXPECT_EQ(trustOf("a/b"), MFolderTrust::Own) << "the group has no other members";
    ASSERT_EQ(chown(native("a/b").c_str(), 0, 65534), 0);
    EXPECT_EQ(trustOf("a/b"), MFolderTrust::Shared);
    ASSERT_EQ(chown(native("a/b").c_str(), 65534, 0), 0);
    EXPECT_EQ(trustOf("a/b"), MFolderTrust::Foreign);
}
