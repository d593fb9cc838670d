#pragma once

#include "foundation/base/MList.h"
#include "install/engine/MInstallLog.h"

#include <cstdint>

/// Deletes what a run finds to be deleted, and remembers what could not be: nothing is raised as
/// `MException`.
class MInstallRemover {
public:
    /// `log` is not owned and outlives the remover.
    explicit MInstallRemover(MInstallLog& log) : log(log) {}

    /// Deletes a file, or a directory with all it holds that bears the name of a bundle. What is missing is
    /// no failure.
    void RemoveFile(const MString& path);
    /// Removes a directory that holds nothing.
    void RemoveDirectory(const MString& path);

    /// How many removals have failed.
    [[nodiscard]] int32_t GetFailureCount() const { return failureCount; }
    /// What is still there of that: files, and directories without content.
    [[nodiscard]] MList<MString> GetLeftovers() const;
    /// Directories that could not be removed because they hold something.
    [[nodiscard]] MList<MString> GetKeptDirectories() const;

private:
    MInstallLog& log;
    int32_t failureCount = 0;
    MList<MString> leftovers;
    MList<MString> keptDirectories;
};
