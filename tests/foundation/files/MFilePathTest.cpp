#include "foundation/files/MFile.h"
#include "foundation/module/MPlatform.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

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

/// Dots that lead a joined name are worked off, those inside stay; a relative path leads from the second one to the
/// first.
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
        {MFile::ChangeExtension, "a/b.txt", "dat", "a/b.dat"},
        {MFile::ChangeExtension, "a.b/c", "dat", "a.b/c.dat"},
        {MFile::ChangeExtension, "b.", "x", "b.x"},
        {MFile::GetRelativePath, "C:/a/b/c", "C:/a/d", "../b/c"},
        {MFile::GetRelativePath, "C:/A/b", "c:/a", "b"},
        {MFile::GetRelativePath, "C:/a", "C:/a/b/c", "../.."},
        {MFile::GetRelativePath, "C:/a", "C:/a", ""},
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
