#pragma once

#include "foundation/text/MString.h"
#include "ui/widgets/files/MAwaitedTask.h"
#include "ui/widgets/files/MFolderSettings.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

struct MFolderEntry {
    MString name;
    bool isDirectory = false;
};

/// What a folder holds, folders first.
struct MFolderContents {
    MString directory;
    std::vector<MFolderEntry> entries;
    MFolderSettings settings;
    MString failure;  ///< why it could not be read; empty if it was
};

/// What is asked of a folder.
struct MFolderQuestion {
    MString directory;  ///< empty for the drives
    MString patterns;   ///< of files, as "*.wav;*.aif"; empty for all
    bool hasFiles = true;
    bool hasHidden = false;                       ///< those that begin with a dot
    std::optional<MFolderSettings::Order> order;  ///< else that of the folder's settings
};

/// Reads folders without keeping the window waiting, as awaited tasks. A question that was not answered yet is
/// dropped by the next one, and by the end of the reader.
class MFolderReader final {
public:
    /// `onRead` may end the reader.
    explicit MFolderReader(std::function<void(const MFolderContents&)> onRead) : onRead(std::move(onRead)) {}

    void Read(const MFolderQuestion& question);
    void Cancel() { task.Cancel(); }
    [[nodiscard]] bool IsReading() const { return task.IsRunning(); }

private:
    const std::function<void(const MFolderContents&)> onRead;
    MAwaitedTask task;
};

/// What a reader does on its thread: reads, filters and sorts. Raises nothing.
void MReadFolder(const MFolderQuestion& question, MFolderContents& contents);
