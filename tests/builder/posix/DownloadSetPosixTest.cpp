#include "foundation/files/posix/MNativePath.h"
#include "tests/builder/DownloadSetFixture.h"
#include "tests/support/posix/MTestFileSizeLimit.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

class DownloadSetPosixTest : public DownloadSetFixture {
protected:
    void Link(const MString& name, const MString& target) const {
        ASSERT_EQ(symlink(MNativePath(target).c_str(), MNativePath(scratch.Join(name)).c_str()), 0);
    }
};

TEST_F(DownloadSetPosixTest, NamesThatWindowsCannotHaveAreAllTold) {
    for (const char* name :
         {"aux.txt", "ab:c", "back\\slash", "dot.", "tab\t", "\xFFraw", "Case/x", "case/y"})
        scratch.WriteFile("files/" + Name(name), "x");
    scratch.WriteFile("files/Downloader.dat.old", "x");
    MString deep = "files";
    for (int i = 0; i < 251; ++i) deep += "/d";
    scratch.WriteFile(deep, "x");
    const std::string before = scratch.ListTree();
    EXPECT_EQ(MakeSet(), MBuilderExitFailed);
    for (const char* problem : {"\"aux.txt\" is reserved", "\"ab:c\" contains", "\"back\\slash\" contains",
                                "\"dot.\" ends with a dot", "\"tab\t\" contains", "\" is no valid Unicode",
                                "\"Case\" and \"case\" differ in case only",
                                "\"Downloader.dat.old\" begins as", "/d\" is too long or too deep"})
        EXPECT_THAT(JoinComplaints(), HasSubstr(problem));
    EXPECT_EQ(output.complaints.size(), 10u) << JoinComplaints();
    EXPECT_EQ(scratch.ListTree(), before);
}

TEST_F(DownloadSetPosixTest, LinksToFilesAreFollowedAndOthersAndAnOutputThatLeadsInsideAreRefused) {
    scratch.WriteFile("target", "content");
    scratch.WriteFile("files/a", "x");
    Link("files/b", scratch.Join("target"));
    ASSERT_EQ(MakeSet(), MBuilderExitDone) << JoinComplaints();
    EXPECT_EQ(scratch.ReadFile("out/Tamborel-8.1/2.1.zip"), "content");
    Link("side", scratch.Join("files"));
    ExpectRefused("is in the directory to offer", {"--output", "@side/new"});
    Link("files/up", scratch.Join("files"));
    Link("files/lost", scratch.Join("missing"));
    ASSERT_EQ(mkfifo(MNativePath(scratch.Join("files/pipe")).c_str(), 0600), 0);
    for (const char* problem :
         {"up\" is a link to a directory", "lost\" could not be open", "pipe\" is no file"})
        ExpectRefused(problem, {"--output", "@new"});
}

TEST_F(DownloadSetPosixTest, AFullDiskLeavesNothing) {
    scratch.WriteFile("files/a", std::string(5000, 'x'));
    scratch.WriteFile("files/b", std::string(50000, 'x'));
    const MTestFileSizeLimit limit(20000);
    ExpectRefused("Probably disk full.", {"--output", "@new/deep"});
}

/// A file of this kind tells a page as its size and holds less.
TEST_F(DownloadSetPosixTest, AFileThatEndsTooEarlyLeavesNothing) {
    const MString source = "/sys/kernel/mm/transparent_hugepage/enabled";
    if (access("/sys/kernel/mm/transparent_hugepage/enabled", R_OK) != 0) GTEST_SKIP() << "no such file here";
    scratch.WriteFile("files/a", "x");
    Link("files/b", source);
    ExpectRefused("b\" changed while it was being read.", {"--output", "@new"});
}

}  // namespace
