#pragma once

#include "foundation/base/MBuffer.h"
#include "install/engine/MInstallProgress.h"
#include "install/presets/MPresetJournal.h"
#include "payload/MLargeResourceLibrary.h"

#include <span>

/// A preset file into which the new presets could not be merged.
struct MUnmergedPresets {
    MString path;
    MString reason;
};

/// Tells a user of such files, by a line each.
[[nodiscard]] MString MDescribeUnmerged(std::span<const MUnmergedPresets> unmerged);

/// A preset file that has new presets, and what it held before.
struct MMergedPresets {
    MString path;
    MString backup;
};

/// Puts the files of an installation onto the disk: writes what may be written, merges the presets of what is
/// there and protected, and leaves everything else.
class MInstallWriter {
public:
    /// Makes the copy buffer, and reads which merges an interrupted run has left. `progress` is not owned and
    /// outlives the writer.
    explicit MInstallWriter(MInstallProgress& progress) : progress(progress), buffer(BufferSize) {}

    /// Brings the `file` element, whose content is in `library`, to `path`. A name with the extension
    /// "aaxplugin" denotes a bundle directory whose binary lies inside, by the architecture that the paths
    /// tell: `X.aaxplugin` is written as `X.aaxplugin/Contents/x64/X.aaxplugin`, or `Win32` in place of
    /// `x64`. Without `rewritable` a file that exists is merged if it holds presets, else left as it is.
    ///
    /// Raises what opening the content, reading and writing raise; what opening the file raises only if the
    /// user refuses to go on without it.
    void Write(MXMLItem& element, const MString& path, bool rewritable, MLargeResourceLibrary& library);
    /// See `MPresetJournal::Complete`. While there are preset files that were left as they were, the next run
    /// completes this one, and keeps the backups of the others.
    void Complete() {
        if (unmerged.IsEmpty()) journal.Complete();
    }

    [[nodiscard]] const MList<MUnmergedPresets>& GetUnmerged() const { return unmerged; }
    [[nodiscard]] const MList<MMergedPresets>& GetMerged() const { return merged; }

private:
    void Merge(MXMLItem& element, const MString& path, MLargeResourceLibrary& library);
    /// Opens what is `written` in the end as `path`, under which the user hears of it. False if it shall be
    /// left out.
    [[nodiscard]] bool OpenTarget(MStdFileStream& target, const MString& written, const MString& path,
                                  bool exists);
    /// True if what was copied is a program.
    [[nodiscard]] bool CopyContent(MStream& content, MStdFileStream& target);

    static constexpr int32_t BufferSize = 1048576;

    MInstallProgress& progress;
    MBuffer buffer;
    MPresetJournal journal;
    MList<MUnmergedPresets> unmerged;
    MList<MMergedPresets> merged;
};
