#include "tests/support/MTreeSnapshot.h"

#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestProgram.h"
#include "tests/support/MTestText.h"

#include <algorithm>

MTreeSnapshot::MTreeSnapshot(const MList<MString>& roots, const MList<MString>& ignored)
    : roots(roots), ignored(ignored) {
    for (const MString& root : roots) {
        if (!MFile::Exists(root)) continue;
        const auto add = [&](const MString& path, bool isDirectory) {
            if (std::find(ignored.begin(), ignored.end(), MFile::GetFileName(path)) != ignored.end()) return;
            entries[Text(path)] = {isDirectory, std::filesystem::status(Text(path)).permissions(),
                                   isDirectory ? std::string() : MReadTestFile(path)};
        };
        add(root, MFile::IsDirectory(root));
        if (!MFile::IsDirectory(root)) continue;
        MFile::GetFileListRecursed(root, "", [&](const MString& directory, const MFileListEntry& entry) {
            add(MFile::Join(directory, entry.name), entry.isDirectory);
            return true;
        });
    }
}

void MTreeSnapshot::Restore() const {
    const MTreeSnapshot now(roots, ignored);
    for (const auto& [path, entry] : now.entries) {
        const auto wanted = entries.find(path);
        const bool isKept = wanted != entries.end() && wanted->second.isDirectory == entry.isDirectory;
        const MString name = MDecodeUTF8Exact(path);
        if (!isKept && MFile::Exists(name)) MFile::DeleteTree(name);
    }
    for (const auto& [path, entry] : entries) {
        const auto present = now.entries.find(path);
        if (present != now.entries.end() && present->second == entry) continue;
        const MString name = MDecodeUTF8Exact(path);
        entry.isDirectory ? MFile::CreatePath(name) : MWriteTestFile(name, entry.content);
        std::filesystem::permissions(path, entry.permissions);
        MGiveToTestUser(name);
    }
}

std::string MTreeSnapshot::DescribeChanges(const MTreeSnapshot& later) const {
    std::string changes;
    for (const auto& [path, entry] : entries) {
        const auto found = later.entries.find(path);
        const bool isSame = found != later.entries.end() &&
                            (path.ends_with(".lnk") ? entry.content.size() == found->second.content.size()
                                                    : entry == found->second);
        if (!isSame) changes += (found == later.entries.end() ? "missing: " : "different: ") + path + "\n";
    }
    for (const auto& [path, entry] : later.entries)
        if (!entries.contains(path)) changes += "new: " + path + "\n";
    return changes;
}
