#include "tests/support/MScratch.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <random>
#include <vector>

namespace {

MString GetUniquePath() {
    static std::mt19937_64 random(std::random_device{}());
    const std::string name = "corvanth-test-" + std::to_string(random());
    return MFile::Join(MGetPlatformFolders().GetPath(MSpecialFolderTemporary), MDecodeUTF8Exact(name));
}

}  // namespace

MScratch::MScratch() : path(GetUniquePath()) {
    MFile::CreatePath(path);
}

MScratch::~MScratch() {
    MGuard("MScratch", [this] { MFile::DeleteTree(path); });
}

MString MScratch::Join(const MString& name) const {
    return MFile::Join(path, name);
}

MString MScratch::WriteFile(const MString& name, std::string_view content) const {
    const MString file = Join(name);
    MWriteTestFile(file, content);
    return file;
}

std::string MScratch::ReadFile(const MString& name) const {
    return MReadTestFile(Join(name));
}

std::string MScratch::ListTree() const {
    std::vector<std::string> lines;
    MFile::GetFileListRecursed(path, MString(), [&](const MString& directory, const MFileListEntry& entry) {
        const MString relative = MFile::GetRelativePath(MFile::Join(directory, entry.name), path);
        lines.push_back(Text(relative) + (entry.isDirectory ? "/\n" : "\n"));
        return true;
    });
    std::sort(lines.begin(), lines.end());
    std::string tree;
    for (const std::string& line : lines) tree += line;
    return tree;
}

std::string MReadTestFile(const MString& path) {
    MStdFileStream stream;
    stream.Open(path, MOpenRead);
    std::string content(static_cast<size_t>(stream.GetSize()), 0);
    stream.ReadRequired(content.data(), static_cast<int32_t>(content.size()));
    return content;
}

void MWriteTestFile(const MString& path, std::string_view content) {
    MFile::CreatePath(MFile::GetDirectory(path));
    MStdFileStream stream;
    stream.Open(path, MOpenWrite | MOpenCreate);
    stream.Write(content.data(), static_cast<int32_t>(content.size()));
    stream.Close();
}

MScratchFolders::MScratchFolders(const MScratch& scratch) {
    std::transform(std::begin(MSpecialFolderNames), std::end(MSpecialFolderNames), paths.begin(),
                   [&](const char* name) { return scratch.Join(name); });
    MFile::UseSpecialFolders(this);
}

MScratchFolders::~MScratchFolders() {
    MFile::UseSpecialFolders(nullptr);
}

MString MScratchFolders::GetPath(int32_t index) {
    return index >= 0 && index < MSpecialFolderCount ? paths[static_cast<size_t>(index)] : MString();
}

void MScratchFolders::SetPath(int32_t index, const MString& path) {
    paths[static_cast<size_t>(index)] = path;
}
