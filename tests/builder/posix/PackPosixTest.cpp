#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "tests/builder/BuilderFixture.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using PackPosixTest = BuilderFixture;

TEST_F(PackPosixTest, PipesAndSocketsAmongSourcesAreNamed) {
    scratch.WriteFile("files/a", "x");
    ASSERT_EQ(mkfifo(MNativePath(scratch.Join("files/pipe")).c_str(), 0600), 0);
    // The path of a socket has little room.
    const int socketHandle = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = "files/socket"};
    const MString current = MFile::GetCurrentPath();
    MFile::SetCurrentPath(scratch.GetPath());
    ASSERT_EQ(bind(socketHandle, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    MFile::SetCurrentPath(current);
    close(socketHandle);
    WriteDefinition(
        "<licence name=\"files/pipe\"/>\n<files name=\"F\" path=\"files\" destination=\"{data}\"/>\n");
    EXPECT_EQ(Run({"check", "@product.xml"}), MBuilderExitFailed);
    EXPECT_THAT(output.complaints,
                ElementsAre(HasSubstr("2: error: The source \""), HasSubstr("files/pipe\" is no file"),
                            HasSubstr("files/socket\" is no file")));
}

TEST_F(PackPosixTest, OutputsThatLeadToAnInputByLinksReplaceNothing) {
    scratch.WriteFile("real/x.xml", MakeDefinition("<note/>"));
    ASSERT_EQ(symlink("real/x.xml", MNativePath(scratch.Join("product.xml")).c_str()), 0);
    ASSERT_EQ(symlink("real", MNativePath(scratch.Join("side")).c_str()), 0);
    for (const char* name : {"product.xml", "side/x.xml", "real/x.xml"}) {
        EXPECT_EQ(Pack(name), MBuilderExitFailed) << name;
        EXPECT_THAT(JoinComplaints(), HasSubstr("\" would replace \"")) << name;
    }
    scratch.WriteFile("folder/a", "x");
    ASSERT_EQ(symlink("folder", MNativePath(scratch.Join("up")).c_str()), 0);
    EXPECT_EQ(Run({"blob", "@folder", "@product.xml", "--output", "@up/blob"}), MBuilderExitFailed);
    EXPECT_THAT(JoinComplaints(), HasSubstr("is in the folder to pack"));
    EXPECT_EQ(Run({"blob", "@folder", "@product.xml", "--output", "@side/x.xml"}), MBuilderExitFailed);
    EXPECT_EQ(scratch.ReadFile("real/x.xml"), MakeDefinition("<note/>"));
}

}  // namespace
