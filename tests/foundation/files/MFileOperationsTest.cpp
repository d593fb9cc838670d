#include "foundation/MProductConstants.h"
#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace {

class MFileOperations : public testing::Test {
protected:
    ~MFileOperations() noexcept override = default;

    /// A failure whose text begins as expected and goes on with words of the system.
    static void ExpectSystemsWords(const std::string& failure, const std::string& start) {
        EXPECT_EQ(failure.substr(0, start.size()), start);
        EXPECT_GT(failure.size(), start.size() + 5);
    }

    MScratch scratch;
};

TEST_F(MFileOperations, TheEmptyPathExistsAndIsADirectory) {
    EXPECT_TRUE(MFile::Exists(""));
    EXPECT_TRUE(MFile::IsDirectory(""));
    EXPECT_TRUE(MFile::IsValidDirectory(""));
    EXPECT_FALSE(MFile::IsFile(""));
}

TEST_F(MFileOperations, FilesAndDirectoriesAreToldApart) {
    const MString file = scratch.WriteFile("file", "x");
    EXPECT_TRUE(MFile::IsFile(file));
    EXPECT_FALSE(MFile::IsDirectory(file));
    EXPECT_TRUE(MFile::IsDirectory(scratch.GetPath()));
    EXPECT_TRUE(MFile::IsValidDirectory(scratch.GetPath()));
    EXPECT_FALSE(MFile::IsValidDirectory(scratch.Join("missing")));
    EXPECT_FALSE(MFile::Exists(scratch.Join("missing")));
    EXPECT_TRUE(MFile::IsWritable(scratch.GetPath()));
    EXPECT_FALSE(MFile::IsWritable(scratch.Join("missing")));
    EXPECT_FALSE(MFile::IsInstallation(scratch.GetPath()));
    scratch.WriteFile("setup.state", "");
    EXPECT_TRUE(MFile::IsInstallation(scratch.GetPath()));
}

TEST_F(MFileOperations, PathsAreCreatedWithAllThatLeadsToThem) {
    MFile::CreatePath(scratch.Join("a/b/c"));
    MFile::CreatePath(scratch.Join("a/b/c"));
    EXPECT_EQ(scratch.ListTree(), "a/\na/b/\na/b/c/\n");
    scratch.WriteFile("file", "");
    const MString blocked = scratch.Join("file/sub");
    ExpectSystemsWords(FailureOf([&] { MFile::CreatePath(blocked); }), "0: Could not create path \"");
    ExpectSystemsWords(FailureOf([&] { MFile::CreateDirectory(scratch.Join("no/sub")); }),
                       "0: Could not create path \"" + Text(scratch.Join("no/sub")) + "\". ");
}

TEST_F(MFileOperations, SeveralMayCreateTheSamePathAtOnce) {
    for (int round = 0; round < 20; ++round) {
        const MString path = scratch.Join(MDecodeUTF8Exact("race" + std::to_string(round) + "/x/y/z"));
        std::atomic<int> failures = 0;
        std::vector<std::thread> threads;
        threads.reserve(4);
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] { failures += FailureOf([&] { MFile::CreatePath(path); }) != "none"; });
        for (std::thread& thread : threads) thread.join();
        EXPECT_EQ(failures, 0);
        EXPECT_TRUE(MFile::IsDirectory(path));
    }
}

TEST_F(MFileOperations, FailuresNameTheirPaths) {
    const MString missing = scratch.Join("missing");
    const std::string name = "\"" + Text(missing) + "\"";
    EXPECT_EQ(FailureOf([&] { MFile::Delete(missing); }), "0: Could not delete file " + name + ".");
    EXPECT_EQ(FailureOf([&] { MFile::RemoveDirectory(missing); }),
              "0: Could not remove directory " + name + ".");
    EXPECT_EQ(FailureOf([&] { MFile::Rename(missing, "x"); }),
              "0: Could not rename file " + name + " to \"x\".");
    EXPECT_EQ(FailureOf([&] { (void)MFile::GetFileList(missing); }),
              "0: Could not access path " + name + " to get file list.");
    EXPECT_EQ(FailureOf([&] { (void)MFile::GetFileTime(missing); }),
              "0: Cannot retrieve file time of  " + name + ".");
    EXPECT_EQ(FailureOf([&] { MFile::SetFileTime(missing, 0); }),
              "0: Could not set system times to " + Text(missing) + ".");
    EXPECT_EQ(FailureOf([&] { (void)MFile::ResolvePath(missing); }),
              "0: Could not resolve path " + Text(missing) + ".");
    scratch.WriteFile("full/file", "");
    EXPECT_EQ(FailureOf([&] { MFile::RemoveDirectory(scratch.Join("full")); }),
              "0: Could not remove directory \"" + Text(scratch.Join("full")) + "\".");
}

TEST_F(MFileOperations, RenamingNeverReplaces) {
    const MString from = scratch.WriteFile("from", "new");
    const MString to = scratch.WriteFile("to", "old");
    EXPECT_EQ(FailureOf([&] { MFile::Rename(from, to); }),
              "0: Could not rename file \"" + Text(from) + "\" to \"" + Text(to) + "\".");
    EXPECT_EQ(scratch.ReadFile("to"), "old");
    MFile::Delete(to);
    MFile::Rename(from, to);
    EXPECT_EQ(scratch.ReadFile("to"), "new");
    EXPECT_FALSE(MFile::Exists(from));
}

TEST_F(MFileOperations, FileTimesKeepMicrosecondsAlsoBefore1970) {
    const MString file = scratch.WriteFile("file", "");
    for (const int64_t time : {int64_t(1419344366123456), int64_t(0), int64_t(-1500000)}) {
        MFile::SetFileTime(file, time);
        EXPECT_EQ(MFile::GetFileTime(file), time);
    }
}

TEST_F(MFileOperations, FileListsTellNamesKindsAndFilter) {
    scratch.WriteFile("one.txt", "");
    scratch.WriteFile("two.dat", "");
    scratch.WriteFile("sub.txt/inner.txt", "");
    const auto list = [&](const MString& filter) {
        std::vector<std::string> names;
        for (const MFileListEntry& entry : MFile::GetFileList(scratch.GetPath(), filter))
            names.push_back(Text(entry.name) + (entry.isDirectory ? "/" : ""));
        std::sort(names.begin(), names.end());
        std::string joined;
        for (const std::string& name : names) joined += name + " ";
        return joined;
    };
    EXPECT_EQ(list(""), "one.txt sub.txt/ two.dat ");
    EXPECT_EQ(list("*.*"), "one.txt sub.txt/ two.dat ");
    EXPECT_EQ(list("*.txt"), "one.txt sub.txt/ ");
    EXPECT_EQ(list("tw?.dat"), "two.dat ");
    EXPECT_EQ(list("*.none"), "");
    EXPECT_EQ(MFile::GetFileList("").GetCount(), MFile::GetDrives().GetCount());
    EXPECT_GT(MFile::GetDrives().GetCount(), 0);
}

TEST_F(MFileOperations, RecursionPassesOverWhatTheCallbackRefuses) {
    scratch.WriteFile("a/b/deep", "");
    scratch.WriteFile("refused/deep", "");
    std::vector<std::string> seen;
    MFile::GetFileListRecursed(
        scratch.GetPath(), "", [&](const MString& directory, const MFileListEntry& entry) {
            seen.push_back(
                Text(MFile::GetRelativePath(MFile::Join(directory, entry.name), scratch.GetPath())));
            return !(entry.name == "refused");
        });
    std::sort(seen.begin(), seen.end());
    EXPECT_EQ(seen, (std::vector<std::string>{"a", "a/b", "a/b/deep", "refused"}));
    EXPECT_EQ(FailureOf([&] {
                  MFile::GetFileListRecursed(scratch.Join("missing"), "",
                                             [](const auto&, const auto&) { return true; });
              }),
              "none");
}

TEST_F(MFileOperations, TreesAreCopiedMovedAndDeleted) {
    const std::string large(3 << 20, 'x');
    scratch.WriteFile("from/large", large);
    scratch.WriteFile("from/sub/small", "s");
    MFile::CreatePath(scratch.Join("from/empty"));
    scratch.WriteFile("copy/sub/small", "is replaced by what is copied");

    MFile::Copy(scratch.Join("from"), scratch.Join("copy"));
    EXPECT_TRUE(scratch.ReadFile("copy/large") == large);
    EXPECT_EQ(scratch.ReadFile("copy/sub/small"), "s");
    MFile::DeleteTree(scratch.Join("copy"));

    // Moving goes into what stands there, and leaves what it cannot move.
    scratch.WriteFile("to/sub/other", "o");
    scratch.WriteFile("to/large", "taken");
    MFile::Move(scratch.Join("from"), scratch.Join("to"));
    EXPECT_EQ(scratch.ListTree(),
              "from/\nfrom/large\nto/\nto/empty/\nto/large\nto/sub/\nto/sub/other\nto/sub/small\n");
    EXPECT_EQ(scratch.ReadFile("to/large"), "taken");
}

TEST_F(MFileOperations, ProgramsAndWorkingDirectories) {
    const MString before = MFile::GetCurrentPath();
    const MString missing = scratch.Join("no-program");
    ExpectSystemsWords(FailureOf([&] { MFile::Execute(missing, {}, "", true); }),
                       "0: Could not execute file \"" + Text(missing) + "\". ");
    EXPECT_EQ(Text(MFile::GetCurrentPath()), Text(before));
    MFile::SetCurrentPath(scratch.GetPath());
    EXPECT_EQ(Text(MFile::GetCurrentPath()), Text(scratch.GetPath()));
    EXPECT_EQ(Text(MFile::Normalize("x")), Text(scratch.Join("x")));
    MFile::SetCurrentPath(missing);
    EXPECT_EQ(Text(MFile::GetCurrentPath()), Text(scratch.GetPath()));
    MFile::SetCurrentPath(before);
}

TEST_F(MFileOperations, InternetLinksAreTextFiles) {
    const MString link = scratch.Join("Web");
    MFile::CreateLink(link, "https://example.org/?a=%20", "", "");
    EXPECT_EQ(scratch.ReadFile("Web.url"), "[InternetShortcut]\nURL=https://example.org/?a=%20\n");
    MFile::DeleteLink(link);
    EXPECT_EQ(scratch.ListTree(), "");
    const MString nowhere = scratch.Join("no/Web");
    ExpectSystemsWords(FailureOf([&] { MFile::CreateLink(nowhere, "a://b", "", ""); }),
                       "0: Could not create file link at \"" + Text(nowhere) + "\" to \"a://b\". ");
}

TEST_F(MFileOperations, ShellLinksNeedTheirTarget) {
    const MString target = scratch.WriteFile(MDecodeUTF8Exact("dir/\xC5\x99 program"), "x");
    const MString link = scratch.Join("Program");
    MFile::CreateLink(link, target, "uninstall", "Removes it");
    EXPECT_NE(scratch.ListTree().find("Program."), std::string::npos) << scratch.ListTree();
    MFile::DeleteLink(link);
    EXPECT_EQ(scratch.ListTree().find("Program."), std::string::npos);
    for (const MString& missing : {scratch.Join("missing"), MString()})
        ExpectSystemsWords(FailureOf([&] { MFile::CreateLink(link, missing, "", ""); }),
                           "0: Could not create file link at \"" + Text(link) + "\" to \"" + Text(missing) +
                               "\". ");
    EXPECT_EQ(scratch.ListTree().find("Program."), std::string::npos);
}

TEST_F(MFileOperations, InstallationsAreFoundBelowTheProgramFolder) {
    const MScratchFolders folders(scratch);
    const std::string notFound =
        "0: Software installation has not been found. Please use the newest installer.";
    const MString name = MString(MProductMaker) + " No Such Product";
    const auto find = [&] { return MFile::GetSoftwareInstallationPath(name); };
    EXPECT_EQ(FailureOf([&] { (void)find(); }), notFound);

    const MString base = MString("programfiles/") + MProductMaker;
    scratch.WriteFile(MFile::Join(base, "No Such Product/setup.state"), "");
    EXPECT_EQ(Text(find()), Text(scratch.Join(MFile::Join(base, "No Such Product"))));
    scratch.WriteFile(MFile::Join(base, name + "/setup.state"), "");
    EXPECT_EQ(Text(find()), Text(scratch.Join(MFile::Join(base, name))));
}

TEST_F(MFileOperations, TheUsersTemporaryFolderIsMadeWhenAskedFor) {
    const MScratchFolders folders(scratch);
    const MString path = MFile::GetSpecialPath(MSpecialFolderUserTemporary);
    EXPECT_EQ(Text(path), Text(scratch.Join("userdata/!temp")));
    EXPECT_TRUE(MFile::IsDirectory(path));
    EXPECT_EQ(Text(MFile::GetSpecialPath(99)), "");
}

}  // namespace
