#include "foundation/files/posix/MNativePath.h"
#include "tests/builder/BuilderFixture.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

using PackPosixTest = BuilderFixture;

TEST_F(PackPosixTest, PipesAmongSourcesAreNamed) {
    scratch.WriteFile("files/a", "x");
    ASSERT_EQ(mkfifo(MNativePath(scratch.Join("files/pipe")).c_str(), 0600), 0);
    WriteDefinition("<files name=\"F\" path=\"files\" destination=\"{data}\"/>\n");
    EXPECT_EQ(Run({"check", "@product.xml"}), MBuilderExitFailed);
    EXPECT_THAT(output.complaints, ElementsAre(HasSubstr("files/pipe\" is no file")));
}

TEST_F(PackPosixTest, OutputsThatLeadToAnInputByLinksReplaceNothing) {
    scratch.WriteFile("real/x.xml", MakeDefinition("<note/>"));
    ASSERT_EQ(symlink("real/x.xml", MNativePath(scratch.Join("product.xml")).c_str()), 0);
    ASSERT_EQ(symlink("real", MNativePath(scratch.Join("side")).c_str()), 0);
    for (const char* name : {"product.xml", "side/x.xml"}) {
        EXPECT_EQ(Pack(name), MBuilderExitFailed) << name;
        EXPECT_THAT(JoinComplaints(), HasSubstr("\" would replace \"")) << name;
    }
    EXPECT_EQ(scratch.ReadFile("real/x.xml"), MakeDefinition("<note/>"));
}

TEST_F(PackPosixTest, PipesAreNoOutputs) {
    scratch.WriteFile("product.xml", MakeDefinition("<note/>"));
    scratch.WriteFile("folder/a", "x");
    const std::string pipe = MNativePath(scratch.Join("pipe"));
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Pack("pipe"), MBuilderExitFailed);
    EXPECT_EQ(Run({"blob", "@folder", "@product.xml", "--output", "@pipe"}), MBuilderExitFailed);
    EXPECT_THAT(output.complaints, testing::Each(HasSubstr("pipe\" is a device or a pipe.")));
    struct stat kind;
    EXPECT_TRUE(stat(pipe.c_str(), &kind) == 0 && S_ISFIFO(kind.st_mode));
}

}  // namespace
