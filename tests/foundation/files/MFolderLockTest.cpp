#include "foundation/files/MFolderLock.h"

#include "foundation/files/MFile.h"
#include "foundation/files/MFileAccess.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <optional>

using testing::HasSubstr;

TEST(MFolderLockTest, KeepsAFolderToOneAtATime) {
    const MScratch scratch;
    // What a killed run has left keeps nobody away, and a folder that is not there has nothing to keep.
    scratch.WriteFile("setup.lock", "");
    std::optional<MFolderLock> first(std::in_place, scratch.GetPath(), "First", 0);
    const MFolderLock nowhere(scratch.Join("missing"), "Third", 0);
    EXPECT_THAT(FailureOf([&] { MFolderLock(scratch.GetPath(), "Second", 100); }),
                HasSubstr(Text(scratch.GetPath()) + "\": First (process "));
    first.reset();
    EXPECT_EQ(FailureOf([&] { MFolderLock(scratch.GetPath(), "Second", 0); }), "none");
    EXPECT_EQ(scratch.ListTree(), "");
}

TEST(MFileAccessTest, KnowsTheSameFileByAnotherWay) {
    const MScratch scratch;
    scratch.WriteFile("sub/file", "1");
    EXPECT_TRUE(MIsSameFile(scratch.Join("sub"), MFile::Join(scratch.Join("sub"), ".")));
    EXPECT_FALSE(MIsSameFile(scratch.Join("sub"), scratch.GetPath()));
    EXPECT_FALSE(MIsSameFile(scratch.Join("gone"), scratch.Join("gone")));
    EXPECT_TRUE(MMayDelete(scratch.Join("sub/file")));
}
