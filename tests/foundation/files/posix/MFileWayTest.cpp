#include "foundation/files/posix/MFileWay.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"
#include "foundation/files/MSharedFolders.h"
#include "foundation/files/posix/MNativePath.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"
#include "tests/support/posix/MTestProcess.h"

#include <functional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using testing::HasSubstr;

class MFileWayTest : public testing::Test {
protected:
    void Link(const char* target, const char* name) const {
        ASSERT_EQ(symlink(target, MNativePath(scratch.Join(name)).c_str()), 0);
    }
    /// Makes something the property of another user.
    void GiveAway(const char* name) const {
        ASSERT_EQ(lchown(MNativePath(scratch.Join(name)).c_str(), MOrdinaryUser, MOrdinaryUser), 0);
    }

    MScratch scratch;
};

// A static object that deleted its files freed what the thread had remembered and given back already.
TEST_F(MFileWayTest, FilesAreDeletedAfterTheMemoryOfTheirThread) {
    struct Cleaner {
        ~Cleaner() { MFile::Delete(path); }
        MString path;
    };
    std::thread([path = scratch.WriteFile("sub/file", "x")] {
        thread_local Cleaner cleaner{path};
        MFile::CreateDirectory(MFile::GetDirectory(cleaner.path) + "/made");
    }).join();
    EXPECT_EQ(scratch.ListTree(), "sub/\nsub/made/\n");
}

// Root wrote through such a link, and deleted behind it.
TEST_F(MFileWayTest, LinksOfOtherUsersAreNotFollowed) {
    if (geteuid() != 0) GTEST_SKIP() << "needs a second user: run as root";
    scratch.WriteFile("elsewhere/file", "x");
    scratch.WriteFile("elsewhere/sub/file", "x");
    Link("elsewhere", "planted");
    Link("elsewhere/file", "planted-file");
    GiveAway("planted");
    GiveAway("planted-file");
    const auto in = [this](const char* name) { return scratch.Join(name); };
    const auto open = [&](const char* name, MOpenFlags flags) {
        MStdFileStream stream;
        stream.Open(in(name), flags);
    };
    const std::function<void()> operations[] = {
        [&] { open("planted/new", MOpenWrite | MOpenCreate); },
        [&] { open("planted/sub/file", MOpenWrite | MOpenCreate); },
        [&] { open("planted/file", MOpenWrite); },
        [&] { open("planted-file", MOpenWrite); },
        [&] { MFile::CreateDirectory(in("planted/folder")); },
        [&] { MFile::Delete(in("planted/file")); },
        [&] { MFile::RemoveDirectory(in("planted/sub")); },
        [&] { MFile::Rename(in("planted/file"), in("moved")); },
        [&] { MReplaceFile(in("planted/file"), in("planted/other")); },
        [&] { MLinkFile(in("planted/file"), in("planted/other")); },
        [&] { MFile::MakeExecutable(in("planted/file")); },
    };
    for (const auto& operation : operations)
        EXPECT_THAT(FailureOf(operation), HasSubstr("\" is not followed: it belongs to another user ("));
    const std::string tree = scratch.ListTree();
    EXPECT_THAT(tree, HasSubstr("elsewhere/\nelsewhere/file\nelsewhere/sub/\nelsewhere/sub/file\nplanted"));
    // The link itself may go.
    MFile::Delete(in("planted"));
    EXPECT_EQ(scratch.ReadFile("elsewhere/file"), "x");
}

TEST_F(MFileWayTest, LinksOfThisUserAreFollowedAndFoldersMayChange) {
    MFile::CreatePath(scratch.Join("a/b"));
    Link("a/../a/b", "own");
    scratch.WriteFile("own/file", "1");
    EXPECT_EQ(scratch.ReadFile("a/b/file"), "1");
    // The folder that was written into last is another one now.
    MFile::Rename(scratch.Join("a"), scratch.Join("moved"));
    MFile::CreatePath(scratch.Join("a/b"));
    scratch.WriteFile("own/second", "2");
    EXPECT_EQ(scratch.ReadFile("a/b/second"), "2");
    Link("circle", "circle");
    EXPECT_THAT(FailureOf([this] { scratch.WriteFile("circle/file", "x"); }),
                HasSubstr("Could not create path"));
}

TEST_F(MFileWayTest, FoldersThatOthersMayWriteIntoAreToldOnce) {
    const std::pair<const char*, mode_t> folders[] = {{"open", 0777}, {"sticky", 01777}, {"private", 0755}};
    for (const auto& [name, mode] : folders) {
        MFile::CreatePath(scratch.Join(name));
        ASSERT_EQ(chmod(MNativePath(scratch.Join(name)).c_str(), mode), 0);
    }
    (void)MTakeSharedFolders();
    for (int i = 0; i < 2; ++i)
        for (const auto& [name, mode] : folders) scratch.WriteFile(MString(name) + "/file", "x");
    const MList<MString> told = MTakeSharedFolders();
    ASSERT_EQ(told.GetCount(), 1);
    EXPECT_EQ(Text(told[0]), Text(scratch.Join("open")));
    EXPECT_TRUE(MTakeSharedFolders().IsEmpty());
}
