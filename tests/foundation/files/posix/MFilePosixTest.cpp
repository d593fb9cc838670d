#include "foundation/files/MFile.h"
#include "foundation/files/MFolderLock.h"
#include "foundation/files/MRegistryKey.h"
#include "foundation/files/posix/MNativePath.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

TEST(MFilePosix, NamesThatAreNoUTF8AreListedCopiedAndDeleted) {
    const MScratch scratch;
    const std::string name = "caf\xE9 \xF0\x9F\x98\x80"
                             "ab";
    scratch.WriteFile(MString("from/") + MPathFromNative(name), "x");
    EXPECT_EQ(access((MNativePath(scratch.GetPath()) + "/from/" + name).c_str(), F_OK), 0);
    MFile::Copy(scratch.Join("from"), scratch.Join("to"));
    EXPECT_EQ(scratch.ListTree(), "from/\nfrom/" + name + "\nto/\nto/" + name + "\n");
    MFile::DeleteTree(scratch.Join("from"));
    EXPECT_FALSE(MFile::Exists(scratch.Join("from")));
}

TEST(MFilePosix, WhatCannotBeMovedToAnotherDiskLeavesNothingThere) {
    const MScratch scratch;
    struct stat here;
    struct stat there;
    ASSERT_EQ(stat(MNativePath(scratch.GetPath()).c_str(), &here), 0);
    ASSERT_EQ(stat("/var/tmp", &there), 0);
    const MString to = MString("/var/tmp/") + MFile::GetFileName(scratch.GetPath());
    if (here.st_dev == there.st_dev) GTEST_SKIP() << "needs a second disk";
    scratch.WriteFile("from/file", "x");
    ASSERT_EQ(mkfifo(MNativePath(scratch.Join("from/pipe")).c_str(), 0600), 0);
    EXPECT_THROW(MFile::Rename(scratch.Join("from"), to), MException);
    EXPECT_FALSE(MFile::Exists(to) || MFile::Exists(to + ".unfinished"));
    EXPECT_EQ(scratch.ReadFile("from/file"), "x");
    MFile::Delete(scratch.Join("from/pipe"));
    MFile::Rename(scratch.Join("from"), to);
    EXPECT_EQ(MReadTestFile(MFile::Join(to, "file")), "x");
    EXPECT_EQ(scratch.ListTree(), "");
    MFile::DeleteTree(to);
}

TEST(MFilePosix, ALockLeavesAFileWithASecondNameAlone) {
    const MScratch scratch;
    const MString work = scratch.WriteFile("work", "mine");
    ASSERT_EQ(link(MNativePath(work).c_str(), MNativePath(scratch.Join("setup.lock")).c_str()), 0);
    MFolderLock(scratch.GetPath(), "First", 0);
    EXPECT_EQ(scratch.ReadFile("work"), "mine");
}

TEST(MFilePosix, LinksAreDeletedAndNotFollowed) {
    const MScratch scratch;
    scratch.WriteFile("kept/file", "x");
    MFile::CreatePath(scratch.Join("tree"));
    const auto link = [&](const char* target, const char* name) {
        ASSERT_EQ(symlink(target, MNativePath(scratch.Join(name)).c_str()), 0);
    };
    link("../kept", "tree/directory");
    link("../kept/file", "tree/file");
    link("nowhere", "tree/dangling");
    link(".", "tree/circle");
    EXPECT_TRUE(MFile::Exists(scratch.Join("tree/dangling")));
    EXPECT_TRUE(MFile::IsDirectory(scratch.Join("tree/directory")));
    EXPECT_EQ(scratch.ListTree(),
              "kept/\nkept/file\ntree/\ntree/circle/\ntree/dangling\ntree/directory/\ntree/file\n");
    MFile::DeleteTree(scratch.Join("tree"));
    EXPECT_EQ(scratch.ListTree(), "kept/\nkept/file\n");
    // Writing replaces a link, too.
    link("kept/file", "link");
    scratch.WriteFile("link", "new");
    EXPECT_EQ(scratch.ReadFile("kept/file"), "x");
}

TEST(MFilePosix, ProgramsGetTheirArgumentsAndGiveTheirExitCode) {
    const MScratch scratch;
    const MString program =
        scratch.WriteFile("bin/program", "#!/bin/sh\nprintf '%s|' \"$@\" > out; exit 3\n");
    const MString before = MFile::GetCurrentPath();
    MList<MString> arguments;
    arguments.Add("two words");
    arguments.Add("\"quoted\" $HOME");
    MFile::MakeExecutable(program);
    EXPECT_EQ(MFile::Execute(program, arguments, scratch.GetPath(), true), 3);
    EXPECT_EQ(Text(MFile::GetCurrentPath()), Text(scratch.GetPath()));
    MFile::SetCurrentPath(before);
    EXPECT_EQ(scratch.ReadFile("out"), "two words|\"quoted\" $HOME|");
    // Those may run a file who may read it.
    ASSERT_EQ(chmod(MNativePath(program).c_str(), 0640), 0);
    MFile::MakeExecutable(program);
    struct stat status;
    ASSERT_EQ(stat(MNativePath(program).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0750u);
    EXPECT_EQ(FailureOf([&] { MFile::MakeExecutable("/x"); }), "0: Could not make file \"/x\" executable.");
}

TEST(MRegistryKeyPosix, WhatIsNotWrittenWholeIsNoValueAndGoesWithTheKey) {
    const MScratch scratch;
    const MScratchFolders folders(scratch);
    MRegistryKey key;
    key.Create(MRegistryRoot::LocalMachine, "test");
    const MString directory = scratch.Join("data/registry/machine/test.key");
    const MString unfinished = directory + "/publisher.value.unfinished";
    MWriteTestFile(unfinished, "te");
    EXPECT_EQ(FailureOf([&] { (void)key.GetValue("Publisher"); }), "0: Cannot get registry value Publisher");
    key.SetValue("Publisher", "Maker");
    MFile::CreatePath(unfinished);
    EXPECT_EQ(FailureOf([&] { key.SetValue("Publisher", 7); }), "0: Cannot set registry value Publisher.");
    EXPECT_EQ(Text(key.GetValue("Publisher")), "Maker");
    MFile::RemoveDirectory(unfinished);
    MWriteTestFile(unfinished, "te");
    MRegistryKey::Delete(MRegistryRoot::LocalMachine, "test");
    EXPECT_FALSE(MFile::Exists(directory));
}

}  // namespace
