#include "foundation/files/MFolderLock.h"

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
