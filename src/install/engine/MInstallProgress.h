#pragma once

#include "foundation/base/MException.h"
#include "foundation/files/MSharedFolders.h"
#include "foundation/text/MStringFormatter.h"
#include "install/engine/MInstallLog.h"
#include "install/engine/MInstallViews.h"
#include "install/engine/MInstalledParts.h"

#include <cstdint>

/// How far a run is, what shows it, and its log: what the classes of the engine share.
struct MInstallProgress {
    /// A run of a processor follows another one.
    void Begin(const MInstallViews& newViews) {
        totalBytes = doneBytes = 0;
        itemCount = itemIndex = 0;
        views = newViews;
    }

    int64_t totalBytes = 0;    ///< that the run will write
    int64_t doneBytes = 0;     ///< written or merged so far
    int64_t fileBytes = 0;     ///< of the file in hand
    int64_t filePosition = 0;  ///< how much of it is written
    int32_t itemCount = 0;     ///< files that the run will touch
    int32_t itemIndex = 0;     ///< files that are done
    MInstalledParts installed;
    MInstallViews views;
    MInstallLog log;

    /// `format` takes the path, the index of the item and their count.
    void ShowItem(const char* format, const MString& path) const {
        views.ShowFile(MFormat(MTranslate(format), path, itemIndex, itemCount));
    }
    void ShowBytes() const {
        views.ShowTotalProgress(totalBytes, doneBytes);
        views.ShowFileProgress(fileBytes, filePosition);
    }
    /// Says once of each folder that what is installed there is not safe from others.
    void TellSharedFolders() {
        for (const MString& folder : MTakeSharedFolders()) {
            const MString text =
                MFormat(MTranslate("Other users may write into \"{0}\", and change what is installed there."),
                        folder);
            Log(text);
            views.ShowInfo(text);
        }
    }
    void ShowItems() const { views.ShowTotalProgress(itemCount, itemIndex); }
    /// Writes a line to the log, put together from texts.
    template <class... Texts>
    void Log(const Texts&... texts) {
        log.Write({texts...});
    }
};
