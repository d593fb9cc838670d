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
        Add(root, MFile::IsDirectory(root));
        if (!MFile::IsDirectory(root)) continue;
        MFile::GetFileListRecursed(root, MString(),
                                   [this](const MString& directory, const MFileListEntry& entry) {
                                       Add(MFile::Join(directory, entry.name), entry.isDirectory);
                                       return true;
                                   });
    }
}

void MTreeSnapshot::Add(const MString& path, bool isDirectory) {
    if (std::find(ignored.begin(), ignored.end(), MFile::GetFileName(path)) != ignored.end()) return;
    const std::string name = Text(path);
    entries[name] = {isDirectory, std::filesystem::status(name).permissions(),
                     isDirectory ? std::string() : MReadTestFile(path)};
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
        if (present == now.entries.end() || !(present->second == entry)) Write(path, entry);
    }
}

void MTreeSnapshot::Write(const std::string& path, const Entry& entry) {
    const MString name = MDecodeUTF8Exact(path);
    if (entry.isDirectory)
        MFile::CreatePath(name);
    else
        MWriteTestFile(name, entry.content);
    std::filesystem::permissions(path, entry.permissions);
    MGiveToTestUser(name);
}

bool MTreeSnapshot::IsSame(const Item& before, const Item& after) {
    if (before.first.ends_with(".lnk")) return before.second.content.size() == after.second.content.size();
    return before.second == after.second;
}

std::string MTreeSnapshot::DescribeChanges(const MTreeSnapshot& later) const {
    std::string changes;
    for (const Item& item : entries) {
        const auto found = later.entries.find(item.first);
        if (found == later.entries.end())
            changes += "missing: " + item.first + "\n";
        else if (!IsSame(item, *found))
            changes += "different: " + item.first + "\n";
    }
    for (const Item& item : later.entries)
        if (!entries.contains(item.first)) changes += "new: " + item.first + "\n";
    return changes;
}
