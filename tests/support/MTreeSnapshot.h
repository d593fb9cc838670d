#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <filesystem>
#include <map>
#include <string>

/// What stands at some paths: their files with all bytes and permissions, and their directories.
class MTreeSnapshot {
public:
    /// Each root is a file, a directory with all it holds, or missing. Files named as one of `ignored` do not
    /// count.
    explicit MTreeSnapshot(const MList<MString>& roots, const MList<MString>& ignored = {});

    /// Brings the roots back to what they were; touches only what differs. What is written belongs to the
    /// user that test programs run as.
    void Restore() const;
    /// A line for each path at which this snapshot and a later one differ; empty if there is none. Of shell
    /// links, which hold the times of their targets, only the sizes count.
    [[nodiscard]] std::string DescribeChanges(const MTreeSnapshot& later) const;

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
