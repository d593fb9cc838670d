#pragma once

#include "foundation/text/MString.h"
#include "ui/control/windows/MTimer.h"
#include "ui/widgets/files/MBackgroundTask.h"
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

/// Reads folders without keeping the window waiting. What is there within a moment is told of at once, before `Read`
/// returns; else later, from a timer. A question that was not answered yet is dropped by the next one, and by the end
/// of the reader, however long its thread takes.
class MFolderReader final : private MTimer {
public:
    /// `onRead` may end the reader.
    explicit MFolderReader(std::function<void(const MFolderContents&)> onRead) : onRead(std::move(onRead)) {}

    /// How long a question keeps the caller, in milliseconds.
    static constexpr int32_t Patience = 30;

    void Read(const MFolderQuestion& question);
    void Cancel();
    [[nodiscard]] bool IsReading() const { return task.has_value(); }

private:
    static constexpr int32_t Interval = 20;  ///< between two looks whether it is there, in milliseconds

    void OnTimer() override;

    const std::function<void(const MFolderContents&)> onRead;
    std::shared_ptr<MFolderContents> contents;
    std::optional<MBackgroundTask> task;
};

/// What a reader does on its thread: reads, filters and sorts. Raises nothing.
void MReadFolder(const MFolderQuestion& question, MFolderContents& contents);
