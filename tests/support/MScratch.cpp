#include "tests/support/MScratch.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "streams/basic/MStdFileStream.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <random>
#include <set>

MScratch::MScratch() {
    static std::mt19937_64 random(std::random_device{}());
    const std::string name = "corvanth-test-" + std::to_string(random());
    path = MFile::Join(MGetPlatformFolders().GetPath(MSpecialFolderTemporary), MDecodeUTF8Exact(name));
    MFile::CreatePath(path);
}

MScratch::~MScratch() {
    MGuard("MScratch", [this] { MFile::DeleteTree(path); });
}

MString MScratch::WriteFile(const MString& name, std::string_view content) const {
    const MString file = Join(name);
    MWriteTestFile(file, content);
    return file;
}

std::string MScratch::ListTree() const {
    std::set<std::string> lines;
    MFile::GetFileListRecursed(path, MString(), [&](const MString& directory, const MFileListEntry& entry) {
        const MString relative = MFile::GetRelativePath(MFile::Join(directory, entry.name), path);
        lines.insert(Text(relative) + (entry.isDirectory ? "/\n" : "\n"));
        return true;
    });
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

MString MScratchFolders::GetPathOf(MFolderOwner of, const MString& /*installation*/, int32_t index) {
    if (index < 0 || index >= MSpecialFolderCount) return {};
    const auto isShared = [](int32_t folder) {
        return folder == MSpecialFolderData || folder == MSpecialFolderStartMenu ||
               folder == MSpecialFolderStartMenuPrograms || folder == MSpecialFolderDesktop;
    };
    const bool isUsers = of == MFolderOwner::User && isShared(index);
    // The user's counterpart of these follows the shared row.
    return paths[static_cast<size_t>(isUsers ? index + 1 : index)];
}
