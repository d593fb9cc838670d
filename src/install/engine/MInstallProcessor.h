#pragma once

#include "foundation/xml/MXMLItem.h"
#include "install/engine/MInstallLog.h"
#include "install/engine/MInstallViews.h"
#include "install/engine/MProcessOptions.h"
#include "install/presets/MPresetJournal.h"
#include "payload/MLargeResourceLibrary.h"

#include <cstdint>

/// The engine of every install, uninstall and update run. The definition tree is the list of work: it is
/// walked once to count and once to perform. Nothing is rolled back, and nothing is journalled but the merges
/// of preset files.
///
/// All of a run happens in the calling thread, synchronously.
class MInstallProcessor {
public:
    /// Makes the copy buffer and opens the log.
    MInstallProcessor();

    /// Carries out what the `files` children of `root` say, in their `currentpath`. `library` holds the
    /// contents; an uninstall run needs none and may pass null. A fatal failure leaves as `MException`,
    /// and what was done until then stays.
    void Perform(MXMLItem& root, MLargeResourceLibrary* library, const MInstallViews& views, bool uninstall);

    /// Works on the `dir` and `file` children of `item` below `destination`. A false `rewritable` protects
    /// existing files and is inherited downwards. `options` is changed and restored during the walk.
    void ProcessItems(const MString& destination, MXMLItem& item, bool rewritable, MProcessOptions& options);

    /// Writes a line to the installer's log, put together from texts.
    template <class... Texts>
    void Log(const Texts&... texts) {
        log.Write({texts...});
    }

    /// To be told when all that belongs to an installation is in place, so that the next run is not taken for
    /// one that completes this one.
    void Complete() { journal.Complete(); }

    /// How many removals have failed.
    [[nodiscard]] int32_t GetFailureCount() const { return failureCount; }
    /// What is still there of that: files, and directories without content.
    [[nodiscard]] MList<MString> GetLeftovers() const;
    /// Directories that could not be removed because they hold something.
    [[nodiscard]] MList<MString> GetKeptDirectories() const;
    [[nodiscard]] int32_t GetItemIndex() const { return itemIndex; }
    [[nodiscard]] int32_t GetItemCount() const { return itemCount; }
    [[nodiscard]] int64_t GetDoneBytes() const { return doneBytes; }
    [[nodiscard]] int64_t GetTotalBytes() const { return totalBytes; }

    static constexpr int32_t BufferSize = 1048576;

private:
    struct Item;

    void CountFiles(MXMLItem& files, bool uninstall);
    void CountPass(MXMLItem& pass, bool uninstall);
    void PerformFiles(MXMLItem& files, bool uninstall);
    void PerformCopy(MXMLItem& files, MXMLItem& copy, bool uninstall);
    void RemovePassDirectory(MXMLItem& pass, const MString& directory);

    [[nodiscard]] static MString GetItemName(MXMLItem& parent, MXMLItem& child,
                                             const MProcessOptions& options);
    void ProcessDirectory(const Item& item, const MString& destination);
    void ProcessDirectoryContents(const Item& item);
    void RemoveDirectory(const Item& item);
    void ProcessFile(const Item& item);
    void RemoveFile(const Item& item);
    void WriteFile(const Item& item);
    void MergePresetFile(const Item& item, const MString& path);
    void RewriteFile(const Item& item, const MString& path, bool exists);
    /// `path` is where the file will stand in the end, as the user hears of it.
    [[nodiscard]] bool OpenTarget(MStdFileStream& target, const MString& written, const MString& path,
                                  bool exists);
    void PlaceProtectedFile(const MString& written, const MString& path);
    /// True if what was copied is a program.
    [[nodiscard]] bool CopyContent(MXMLItem& element, MStdFileStream& target);
    void ShowItem(const char* format, const MString& path);
    void ShowCopyProgress();
    void ShowRemovalProgress(const Item& item, const char* format);
    /// Both count a removal that fails.
    void TryRemovingFile(const Item& item);
    void TryRemovingDirectory(const MString& path);

    MLargeResourceLibrary* library = nullptr;
    MBuffer buffer;
    int64_t totalBytes = 0;
    int64_t doneBytes = 0;
    int64_t fileBytes = 0;
    int64_t filePosition = 0;
    int32_t itemCount = 0;
    int32_t itemIndex = 0;
    MInstallViews views;
    MInstallLog log;
    int32_t failureCount = 0;
    MList<MString> leftovers;
    MList<MString> keptDirectories;
    MPresetJournal journal;
};
