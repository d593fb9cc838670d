#include "foundation/files/posix/MNativePath.h"
#include "tests/install/InstallFixture.h"
#include "tests/support/posix/MTestProcess.h"

#include <sys/stat.h>
#include <unistd.h>

using testing::HasSubstr;

/// What another user has put into the folders of a product that root installs and removes.
class PlantedLinkTest : public InstallTest {
protected:
    ~PlantedLinkTest() noexcept override = default;

    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "needs a second user: run as root";
        scratch.WriteFile("elsewhere/a", "x");
        MFile::CreatePath(GetTarget());
        ASSERT_EQ(chmod(MNativePath(GetTarget()).c_str(), 0777), 0);
        const std::string link = MNativePath(InTarget("conf"));
        ASSERT_EQ(symlink("../elsewhere", link.c_str()), 0);
        ASSERT_EQ(lchown(link.c_str(), MOrdinaryUser, MOrdinaryUser), 0);
        Define(Files("", File("b", "1") + "<dir name=\"conf\">" + File("a", "2") + "</dir>"));
    }
};

TEST_F(PlantedLinkTest, IsNamedAndNotFollowed) {
    EXPECT_THAT(FailureOf([this] { Perform(); }), HasSubstr(Place("The link \"{to}/conf\" is not followed")));
    EXPECT_THAT(ReadLog(), HasSubstr(Place("Other users may write into \"{to}\"")));
    EXPECT_EQ(Read("b"), "1");
    Perform(MRunKind::Uninstall);
    EXPECT_FALSE(Exists("b"));
    EXPECT_EQ(scratch.ReadFile("elsewhere/a"), "x");
    const MList<MString> leftovers = processor->GetRemover().GetLeftovers();
    ASSERT_FALSE(leftovers.IsEmpty());
    EXPECT_EQ(Text(leftovers[0]), Text(InTarget("conf/a")));
}
