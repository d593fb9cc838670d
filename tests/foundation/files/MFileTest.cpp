#include "foundation/files/MFile.h"
#include "foundation/MProductConstants.h"
#include "foundation/module/MPlatform.h"
#include "foundation/text/MStringFormatter.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <atomic>
#include <functional>
#include <numeric>
#include <set>
#include <thread>
#include <tuple>
#include <vector>

namespace {

class MFileOperations : public testing::Test {
protected:
    ~MFileOperations() noexcept override = default;

    /// A failure whose text begins as expected and goes on with words of the system.
    template <class Body>
    static void ExpectSystemsWords(Body body, const std::string& start) {
        const std::string failure = FailureOf(body);
        EXPECT_EQ(failure.substr(0, start.size()), start);
        EXPECT_GT(failure.size(), start.size() + 5);
    }

    MScratch scratch;
};

TEST_F(MFileOperations, FilesAndDirectoriesAreToldApart) {
    scratch.WriteFile("file", "x");
    using Question = bool (*)(const MString&);
    const Question questions[] = {MFile::Exists,           MFile::IsFile,     MFile::IsDirectory,
                                  MFile::IsValidDirectory, MFile::IsWritable, MFile::IsInstallation};
    const std::pair<MString, const char*> cases[] = {
        {scratch.Join("file"), "yynnyn"}, {scratch.GetPath(), "ynyyyn"}, {scratch.Join("missing"), "nnnnnn"}};
    for (const auto& [path, expected] : cases) {
        std::string answers;
        for (const Question question : questions) answers += question(path) ? 'y' : 'n';
        EXPECT_EQ(answers, expected) << Text(path);
    }
    EXPECT_TRUE(MFile::Exists("") && MFile::IsDirectory("") && MFile::IsValidDirectory(""));
    MFile::CreatePath(scratch.Join("x"));
    EXPECT_TRUE(MFile::IsSame(scratch.Join("x"), scratch.GetPath() + "/x/../x"));
    EXPECT_FALSE(MFile::IsSame(scratch.Join("x"), scratch.GetPath()));
    EXPECT_FALSE(MFile::IsSame(scratch.Join("missing"), scratch.Join("missing too")));
    scratch.WriteFile("setup.state", "");
    EXPECT_TRUE(MFile::IsInstallation(scratch.GetPath()));
}

TEST_F(MFileOperations, PathsAreCreatedWithAllThatLeadsToThem) {
    MFile::CreatePath(scratch.Join("a/b/c"));
    EXPECT_EQ(scratch.ListTree(), "a/\na/b/\na/b/c/\n");
    scratch.WriteFile("file", "");
    ExpectSystemsWords([&] { MFile::CreatePath(scratch.Join("file/sub")); }, "0: Could not create path \"");
    ExpectSystemsWords([&] { MFile::CreateDirectory(scratch.Join("no/sub")); },
                       "0: Could not create path \"" + Text(scratch.Join("no/sub")) + "\". ");
    // Once each of the components cost the memory of a path.
    std::string deep;
    for (int i = 0; i < 60'000; ++i) deep += "/x";
    ExpectSystemsWords([&] { MFile::CreatePath(scratch.Join(Heap(deep.c_str()))); },
                       "0: Could not create path \"");
}

TEST_F(MFileOperations, SeveralMayCreateTheSamePathAtOnce) {
    for (const char* path : {"a/x/y/z", "b/x/y/z", "c/x/y/z", "d/x/y/z"}) {
        std::atomic<int> failures = 0;
        const auto create = [&] { MFile::CreatePath(scratch.Join(path)); };
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) threads.emplace_back([&] { failures += FailureOf(create) != "none"; });
        for (std::thread& thread : threads) thread.join();
        EXPECT_EQ(failures, 0);
    }
}

TEST_F(MFileOperations, FailuresNameTheirPaths) {
    const MString missing = scratch.Join("missing");
    const MString full = MFile::GetDirectory(scratch.WriteFile("full/file", ""));
    const std::pair<std::function<void()>, MString> cases[] = {
        {[&] { MFile::Delete(missing); }, "Could not delete file \"{0}\"."},
        {[&] { MFile::RemoveDirectory(missing); }, "Could not remove directory \"{0}\"."},
        {[&] { MFile::RemoveDirectory(full); }, "Could not remove directory \"{1}\"."},
        {[&] { MFile::Rename(missing, "x"); }, "Could not rename file \"{0}\" to \"x\"."},
        {[&] { (void)MFile::GetFileList(missing); }, "Could not access path \"{0}\" to get file list."},
        {[&] { (void)MFile::GetFileTime(missing); }, "Cannot retrieve file time of  \"{0}\"."},
        {[&] { MFile::SetFileTime(missing, 0); }, "Could not set system times to {0}."},
        {[&] { (void)MFile::ResolvePath(missing); }, "Could not resolve path {0}."}};
    for (const auto& [operation, text] : cases)
        EXPECT_EQ(FailureOf(operation), "0: " + Text(MFormat(text, missing, full)));
}

TEST_F(MFileOperations, RenamingNeverReplacesAndTimesKeepMicroseconds) {
    const MString from = scratch.WriteFile("from", "new");
    const MString to = scratch.WriteFile("to", "old");
    EXPECT_THROW(MFile::Rename(from, to), MException);
    EXPECT_EQ(scratch.ReadFile("to"), "old");
    MFile::Delete(to);
    MFile::Rename(from, to);
    EXPECT_EQ(scratch.ListTree() + scratch.ReadFile("to"), "to\nnew");
    for (const int64_t time : {int64_t(1419344366123456), int64_t(0), int64_t(-1500000)}) {
        MFile::SetFileTime(to, time);
        EXPECT_EQ(MFile::GetFileTime(to), time);
    }
}

TEST_F(MFileOperations, ListsTellNamesKindsAndFilterAndGoBelow) {
    scratch.WriteFile("one.txt", "");
    scratch.WriteFile("sub.txt/deep/inner.dat", "");
    scratch.WriteFile("two.dat/refused", "");
    const auto list = [&](const char* filter, bool isRecursive) {
        std::set<std::string> names;
        const auto take = [&](const MString&, const MFileListEntry& entry) {
            names.insert(Text(entry.name) + (entry.isDirectory ? "/" : ""));
            return entry.name != "two.dat";
        };
        if (isRecursive)
            MFile::GetFileListRecursed(scratch.GetPath(), filter, take);
        else
            for (const MFileListEntry& entry : MFile::GetFileList(scratch.GetPath(), filter)) take("", entry);
        return std::accumulate(names.begin(), names.end(), std::string());
    };
    for (const char* all : {"", "*.*"}) EXPECT_EQ(list(all, false), "one.txtsub.txt/two.dat/");
    EXPECT_EQ(list("*.txt", false) + "|" + list("tw?.dat", false), "one.txtsub.txt/|two.dat/");
    EXPECT_EQ(list("", true), "deep/inner.datone.txtsub.txt/two.dat/");
    EXPECT_NO_THROW(MFile::GetFileListRecursed("/missing", "", nullptr));
    EXPECT_EQ(MFile::GetFileList("").GetCount(), MFile::GetDrives().GetCount());
    EXPECT_GT(MFile::GetDrives().GetCount(), 0);
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
    ExpectSystemsWords([&] { MFile::Execute(missing, {}, "", true); },
                       "0: Could not execute file \"" + Text(missing) + "\". ");
    EXPECT_EQ(Text(MFile::GetCurrentPath()), Text(before));
    MFile::SetCurrentPath(scratch.GetPath());
    EXPECT_EQ(Text(MFile::GetCurrentPath()), Text(scratch.GetPath()));
    EXPECT_EQ(Text(MFile::Normalize("x")), Text(scratch.Join("x")));
    MFile::SetCurrentPath(missing);
    EXPECT_EQ(Text(MFile::GetCurrentPath()), Text(scratch.GetPath()));
    MFile::SetCurrentPath(before);
}

TEST_F(MFileOperations, InternetLinksNeedNoTargetAndShellLinksDo) {
    MFile::CreateLink(scratch.Join("Web"), "https://example.org/?a=%20", "", "");
    EXPECT_FALSE(MFile::FindLink(scratch.Join("Web")).IsEmpty());
    MFile::DeleteLink(scratch.Join("Web"));
    EXPECT_EQ(scratch.ListTree(), "");
    const auto expectRefused = [&](const MString& link, const MString& to) {
        ExpectSystemsWords([&] { MFile::CreateLink(link, to, "", ""); },
                           Text(MFormat("0: Could not create file link at \"{0}\" to \"{1}\". ", link, to)));
    };
    expectRefused(scratch.Join("no/Web"), "a://b");
    const MString target = scratch.WriteFile(MDecodeUTF8Exact("dir/\xC5\x99 program"), "x");
    const MString link = scratch.Join("Program");
    MFile::CreateLink(link, target, "uninstall", "Removes it");
    EXPECT_NE(scratch.ListTree().find("Program."), std::string::npos) << scratch.ListTree();
    MFile::DeleteLink(link);
    for (const MString& missing : {scratch.Join("missing"), MString()}) expectRefused(link, missing);
    EXPECT_EQ(scratch.ListTree().find("Program."), std::string::npos);
}

TEST_F(MFileOperations, TheUsersTemporaryFolderIsMadeWhenAskedForUnlessThereIsNoUser) {
    MScratchFolders folders(scratch);
    EXPECT_EQ(Text(MFile::GetSpecialPath(MSpecialFolderUserTemporary)), Text(scratch.Join("userdata/!temp")));
    EXPECT_EQ(scratch.ListTree(), "userdata/\nuserdata/!temp/\n");
    EXPECT_EQ(Text(MFile::GetSpecialPath(99)), "");
    folders.SetPath(MSpecialFolderUserData, "");
    EXPECT_EQ(Text(MFile::GetSpecialPath(MSpecialFolderUserTemporary)), "");
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

TEST(MFilePath, NormalizeMakesPathsCanonical) {
    const std::string current = Text(MFile::GetCurrentPath());
    const bool hasRoot = MPlatform::HasRootDirectory();
    const std::pair<const char*, std::string> cases[] = {{"", ""},
                                                         {"dir/", current + "/dir"},
                                                         {"a\\b", current + "/a/b"},
                                                         {"C:\\dir\\sub\\", "C:/dir/sub"},
                                                         {"C:\\", "C:"},
                                                         {"C:/a/../b", "C:/a/../b"},
                                                         {"/a\\b/", hasRoot ? "/a/b" : current + "//a/b"},
                                                         {"/", hasRoot ? "/" : current + "/"}};
    for (const auto& [path, expected] : cases) EXPECT_EQ(Text(MFile::Normalize(path)), expected);
    EXPECT_EQ(Text(MFile::GetDirectory("/file")), hasRoot ? "/" : "");
}

/// Dots that lead a joined name are worked off, those inside stay; a relative path leads from the second one
/// to the first.
TEST(MFilePath, PathsArePutTogetherAndTakenApart) {
    using Operation = MString (*)(const MString&, const MString&);
    const std::tuple<Operation, const char*, const char*, const char*> cases[] = {
        {MFile::Join, "C:/x", "../y", "C:/y"},
        {MFile::Join, "C:/x", "y", "C:/x/y"},
        {MFile::Join, "C:/x/", "/y/", "C:/x/y"},
        {MFile::Join, "C:/x/z", "../.././y", "C:/y"},
        {MFile::Join, "C:/x", "../..", "C:"},
        {MFile::Join, "C:/x", "..name", "C:/x/..name"},
        {MFile::Join, "C:/x", "a/../b", "C:/x/a/../b"},
        {MFile::Join, "", "y", "y"},
        {MFile::Join, "C:/x", "", "C:/x"},
        {MFile::Join, "/", "y", "/y"},
        {MFile::Join, "/x", "../../../y", "/y"},
        {MFile::Join, "x", "../y", "y"},
        {MFile::Join, "C:/x", "./..", "C:"},
        {MFile::Join, "C:/x/y", "/.././../.z", "C:/.z"},
        {MFile::ChangeExtension, "a/b.txt", "dat", "a/b.dat"},
        {MFile::ChangeExtension, "a.b/c", "dat", "a.b/c.dat"},
        {MFile::ChangeExtension, "b.", "x", "b.x"},
        {MFile::GetRelativePath, "C:/a/b/c", "C:/a/d", "../b/c"},
        {MFile::GetRelativePath, "C:/A/b", "c:/a", "b"},
        {MFile::GetRelativePath, "C:/a", "C:/a/b/c", "../.."},
        {MFile::GetRelativePath, "C:/a", "C:/a", ""},
        {MFile::GetRelativePath, "/x/y/../z", "/w", "../x/z"},
        {MFile::GetRelativePath, "/x/y", "/x/z/w", "../../y"}};
    for (const auto& [operation, first, second, expected] : cases)
        EXPECT_EQ(Text(operation(first, second)), expected) << first << " " << second;
    const char* const parts[][5] = {{"C:/dir/file.txt", "C:/dir", "file.txt", "file", "txt"},
                                    {"file", "", "file", "file", ""},
                                    {"a.b/file", "a.b", "file", "file", ""},
                                    {"a/b.tar.gz", "a", "b.tar.gz", "b.tar", "gz"},
                                    {"a\\b/c.d", "a", "b/c.d", "b/c", "d"},
                                    {"a/.hidden", "a", ".hidden", "", "hidden"}};
    for (const auto& [path, directory, name, base, extension] : parts)
        EXPECT_EQ(Text(MFile::GetDirectory(path) + "|" + MFile::GetFileName(path) + "|" +
                       MFile::GetBaseName(path) + "|" + MFile::GetExtension(path)),
                  std::string(directory) + "|" + name + "|" + base + "|" + extension);
}

}  // namespace
