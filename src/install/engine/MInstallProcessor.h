#pragma once

#include "foundation/xml/MXMLItem.h"
#include "install/definition/MItemNames.h"
#include "install/engine/MInstallRemover.h"
#include "install/engine/MInstallWriter.h"

/// What a run does with the items of a definition.
enum class MRunKind { Install, Uninstall };

/// How the items of one destination are worked on.
struct MProcessOptions : MItemExtensions {
    bool uninstall = false;
    /// Directories without a "." in their name are dissolved into the destination.
    bool ignoreSubdirs = false;
};

/// The engine of every install, uninstall and update run. The definition tree is the list of work: it is
/// walked once to count and once to perform. Nothing is rolled back, and nothing is journalled but the merges
/// of preset files.
///
/// All of a run happens in the calling thread, synchronously.
class MInstallProcessor {
public:
    /// Makes the copy buffer and opens the log.
    MInstallProcessor() = default;
    MInstallProcessor(const MInstallProcessor&) = delete;
    MInstallProcessor& operator=(const MInstallProcessor&) = delete;

    /// Carries out what the `files` children of `root` say, in their `currentpath`. `library` holds the
    /// contents; to uninstall none is needed, and null may be passed. A fatal failure leaves as `MException`,
    /// and what was done until then stays. What `MCheckItemNames` and `MAddSize` raise comes before any file
    /// is touched.
    void Perform(MXMLItem& root, MLargeResourceLibrary* library, const MInstallViews& views, MRunKind kind);

    /// Works on the `dir` and `file` children of `item` below `destination`. A false `rewritable` protects
    /// existing files and is inherited downwards. `options` is changed and restored during the walk. Raises
    /// what `MRequireItemName` raises.
    void ProcessItems(const MString& destination, MXMLItem& item, bool rewritable, MProcessOptions& options);

    /// Writes a line to the installer's log, put together from texts.
    template <class... Texts>
    void Log(const Texts&... texts) {
        progress.Log(texts...);
    }

    /// To be told when all that belongs to an installation is in place, so that the next run is not taken for
    /// one that completes this one.
    void Complete() {
        writer.Complete();
        progress.TellSharedFolders();
    }

    [[nodiscard]] const MInstallProgress& GetProgress() const { return progress; }
    /// Preset files that were left as they were.
    [[nodiscard]] const MList<MUnmergedPresets>& GetUnmerged() const { return writer.GetUnmerged(); }
    /// Preset files that have new presets, as far as something changed in them, and their backups.
    [[nodiscard]] const MList<MMergedPresets>& GetMerged() const { return writer.GetMerged(); }
    /// What could not be removed.
    [[nodiscard]] const MInstallRemover& GetRemover() const { return remover; }

private:
    struct Item;

    void Prepare(MXMLItem& files, MRunKind kind);
    void PerformFiles(MXMLItem& files, MRunKind kind);
    void ProcessDirectory(const Item& item, const MString& destination, MProcessOptions& options);
    void ProcessFile(const Item& item, const MProcessOptions& options);
    void ShowRemoval(const char* format, const Item& item, const MProcessOptions& options) const;

    MLargeResourceLibrary* library = nullptr;
    MInstallProgress progress;
    MInstallWriter writer{progress};
    MInstallRemover remover{progress.log};
};
