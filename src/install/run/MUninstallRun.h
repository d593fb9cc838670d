#pragma once

#include "foundation/xml/MXMLItem.h"
#include "install/engine/MInstallProcessor.h"

#include <memory>

/// The removing of an installation, from what its "setup.state" says. Files below containers with
/// `rewritable` or `uninstall` 0 stay, and so do directories that hold anything else, the program itself and
/// the log.
class MUninstallRun {
public:
    /// Reads "setup.state" in `directory`. `views` shows the phase in its `infoText` and the items in its
    /// `totalBar`; errors go to its `dialogs`. What the views point at is not owned, and the dialogs must not
    /// be null. Raises what `MLoadInstallState` raises, and `MRefusal` for a user who may not delete the
    /// state.
    MUninstallRun(const MString& directory, const MInstallViews& views);

    /// Keeps other setups away, reads the state again, opens the installer's log anew, and removes files,
    /// links, key and state, in this order; what cannot be removed is counted and passed over. Raises what
    /// stopped it: another setup (what `MFolderLock` raises, or that it has removed the product meanwhile), a
    /// state that lacks an attribute, or names what lies outside of the product's directories.
    void PerformUninstallation();

    /// What "setup.state" says.
    [[nodiscard]] const MXMLItem& GetState() const { return state; }

    // What has come of it, also after a failure.
    /// How many files and directories could not be removed.
    [[nodiscard]] int32_t GetFailureCount() const {
        return failureCount + (processor ? processor->GetRemover().GetFailureCount() : 0);
    }
    /// What is still there and should not be: files, links, empty directories, the key, the state.
    [[nodiscard]] MList<MString> GetLeftovers() const;
    /// Directories that stay because they hold something else, those of links too; each once.
    [[nodiscard]] MList<MString> GetKeptDirectories() const;

private:
    void RemoveLinks(const MString& key);

    MInstallViews views;
    MXMLItem state;
    MString productName;
    MString mainPath;
    std::unique_ptr<MInstallProcessor> processor;
    int32_t failureCount = 0;
    MList<MString> leftovers;
    MList<MString> keptFolders;
};
