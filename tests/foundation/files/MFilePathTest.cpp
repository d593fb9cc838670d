#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

struct PathCase {
    const char* path;
    const char* expected;
};

struct PairCase {
    const char* first;
    const char* second;
    const char* expected;
};

TEST(MFilePath, NormalizeMakesPathsCanonical) {
    const std::string current = Text(MFile::GetCurrentPath());
    EXPECT_EQ(Text(MFile::Normalize("")), "");
    EXPECT_EQ(Text(MFile::Normalize("dir/")), current + "/dir");
    EXPECT_EQ(Text(MFile::Normalize("a\\b")), current + "/a/b");
    EXPECT_EQ(Text(MFile::Normalize("C:\\dir\\sub\\")), "C:/dir/sub");
    EXPECT_EQ(Text(MFile::Normalize("C:\\")), "C:");
    EXPECT_EQ(Text(MFile::Normalize("C:/a/../b")), "C:/a/../b");
    const bool hasRoot = MPlatform::HasRootDirectory();
    EXPECT_EQ(Text(MFile::Normalize("/a\\b/")), hasRoot ? "/a/b" : current + "//a/b");
    EXPECT_EQ(Text(MFile::Normalize("/")), hasRoot ? "/" : current + "/");
}

TEST(MFilePath, JoinWorksOffLeadingDots) {
    const PairCase cases[] = {
        {"C:/x", "../y", "C:/y"},
        {"C:/x", "y", "C:/x/y"},
        {"C:/x/", "/y/", "C:/x/y"},
        {"C:/x", "./y", "C:/x/y"},
        {"C:/x/z", "../../y", "C:/y"},
        {"C:/x", "..", "C:"},
        {"C:/x", "../..", "C:"},
        {"C:/x", "..name", "C:/x/..name"},
        {"C:/x", "a/../b", "C:/x/a/../b"},
        {"", "y", "y"},
        {"C:/x", "", "C:/x"},
        {"/", "y", "/y"},
        {"/x", "../../../y", "/y"},
        {"x", "../y", "y"},
        {"C:/x", ".././y", "C:/y"},
    };
    for (const PairCase& entry : cases)
        EXPECT_EQ(Text(MFile::Join(entry.first, entry.second)), entry.expected)
            << entry.first << " + " << entry.second;
}

TEST(MFilePath, PartsOfAPath) {
    const struct {
        const char* path;
        const char* directory;
        const char* name;
        const char* base;
        const char* extension;
    } cases[] = {
        {"C:/dir/file.txt", "C:/dir", "file.txt", "file", "txt"},
        {"file", "", "file", "file", ""},
        {"a.b/file", "a.b", "file", "file", ""},
        {"a/b.tar.gz", "a", "b.tar.gz", "b.tar", "gz"},
        {"a\\b/c.d", "a", "b/c.d", "b/c", "d"},
        {"a/.hidden", "a", ".hidden", "", "hidden"},
        {"a/", "a", "", "", ""},
        {"", "", "", "", ""},
    };
    for (const auto& entry : cases) {
        SCOPED_TRACE(entry.path);
        EXPECT_EQ(Text(MFile::GetDirectory(entry.path)), entry.directory);
        EXPECT_EQ(Text(MFile::GetFileName(entry.path)), entry.name);
        EXPECT_EQ(Text(MFile::GetBaseName(entry.path)), entry.base);
        EXPECT_EQ(Text(MFile::GetExtension(entry.path)), entry.extension);
    }
    EXPECT_EQ(Text(MFile::GetDirectory("/file")), MPlatform::HasRootDirectory() ? "/" : "");
}

TEST(MFilePath, ChangeExtensionLooksAtTheLastComponentOnly) {
    const PairCase cases[] = {{"a/b.txt", "dat", "a/b.dat"},
                              {"a.b/c", "dat", "a.b/c.dat"},
                              {"b", "dat", "b.dat"},
                              {"b.", "x", "b.x"}};
    for (const PairCase& entry : cases)
        EXPECT_EQ(Text(MFile::ChangeExtension(entry.first, entry.second)), entry.expected);
}

TEST(MFilePath, RelativePathLeadsFromTheSecondToTheFirst) {
    const PairCase cases[] = {
        {"C:/a/b/c", "C:/a/d", "../b/c"}, {"C:/A/b", "c:/a", "b"},
        {"C:/a", "C:/a/b/c", "../.."},    {"C:/a", "C:/a", ""},
        {"/x/y", "/x/z/w", "../../y"},
    };
    for (const PairCase& entry : cases)
        EXPECT_EQ(Text(MFile::GetRelativePath(entry.first, entry.second)), entry.expected);
}

}  // namespace
