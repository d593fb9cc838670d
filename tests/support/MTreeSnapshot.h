#pragma once

#include "foundation/files/MFile.h"
#include "foundation/text/MUnicode.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestProgram.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>

/// What stands at some paths: their files with all bytes and permissions, and their directories.
class MTreeSnapshot {
public:
    /// Each root is a file, a directory with all it holds, or missing. Files named as one of `ignored` do not
    /// count.
    explicit MTreeSnapshot(const MList<MString>& roots, const MList<MString>& ignored = {})
        : roots(roots), ignored(ignored) {
        for (const MString& root : roots) {
            if (!MFile::Exists(root)) continue;
            const auto add = [&](const MString& path, bool isDirectory) {
                if (std::find(ignored.begin(), ignored.end(), MFile::GetFileName(path)) != ignored.end())
                    return;
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

    /// Brings the roots back to what they were; touches only what differs. What is written belongs to the
    /// user that test programs run as.
    void Restore() const {
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
    /// A line for each path at which this snapshot and a later one differ; empty if there is none. Of shell
    /// links, which hold the times of their targets, only the sizes count.
    [[nodiscard]] std::string DescribeChanges(const MTreeSnapshot& later) const {
        std::string changes;
        for (const auto& [path, entry] : entries) {
            const auto found = later.entries.find(path);
            const bool isSame = found != later.entries.end() &&
                                (path.ends_with(".lnk") ? entry.content.size() == found->second.content.size()
                                                        : entry == found->second);
            if (!isSame)
                changes += (found == later.entries.end() ? "missing: " : "different: ") + path + "\n";
        }
        for (const auto& [path, entry] : later.entries)
            if (!entries.contains(path)) changes += "new: " + path + "\n";
        return changes;
    }

private:
    struct Entry {
        bool isDirectory = false;
        std::filesystem::perms permissions = std::filesystem::perms::none;
        std::string content;

        bool operator==(const Entry&) const = default;
    };
    MList<MString> roots;
    MList<MString> ignored;
    std::map<std::string, Entry> entries;  ///< by path: directories come before what they hold
};
