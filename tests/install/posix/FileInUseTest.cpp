#include "foundation/files/posix/MNativePath.h"
#include "tests/install/InstallFixture.h"
#include "tests/support/posix/MFileHolder.h"

#include <fcntl.h>

TEST_F(InstallTest, TheQuestionNamesWhatHoldsTheFile) {
    Define(Files("", File("blocked", "1")));
    // A folder, since nothing else can stand in the way of root.
    Put("blocked/inside", "x");
    const int folder = open(MNativePath(InTarget("blocked")).c_str(), O_RDONLY | O_CLOEXEC);
    const MFileHolder holder;
    close(folder);
    EXPECT_THROW(Perform(), MException);
    ASSERT_EQ(dialogs.questions.size(), 1u);
    EXPECT_THAT(dialogs.questions[0],
                testing::EndsWith("without creating the file.\n\nIt is in use by " + Text(holder.GetName()) +
                                  ". Please close that first."));
}
