#pragma once

#include "foundation/xml/MXMLItem.h"
#include "install/engine/MInstallProcessor.h"

/// The removing of an installation, from what its "setup.state" says. Files below containers with `rewritable`
/// or `uninstall` 0 stay, and so do directories that hold anything else, the program itself and the log.
class MUninstallRun {
public:
    /// Reads "setup.state" in `directory`, and opens the installer's log anew. `views` shows the phase in its
    /// `infoText` and the items in its `totalBar`; errors go to its `dialogs`. It is not owned, and its dialogs
    /// must not be null. Raises what `MXMLItem::LoadFile` raises, and "Could not find required attribute ({0})."
    /// (0) for a state without name.
    MUninstallRun(const MString& directory, const MInstallViews& views);

    [[nodiscard]] const MString& GetProductName() const { return productName; }

    /// Removes files, links, key and state, in this order; what cannot be removed is counted and passed over.
    /// Raises what stopped it: a state that lacks an attribute, or names what lies outside of the product's
    /// directories.
    void PerformUninstallation();

    /// How many files and directories could not be removed.
    [[nodiscard]] int32_t GetFailureCount() const { return processor.GetFailureCount() + failureCount; }
    /// What is still there and should not be: files, links, empty directories, the key, the state.
    [[nodiscard]] MList<MString> GetLeftovers() const;
    /// Directories that stay because they hold something else.
    [[nodiscard]] MList<MString> GetKeptDirectories() const { return processor.GetKeptDirectories(); }

private:
    void RemoveShortcuts();
    void RemoveKey();
    void RemoveState();

    MInstallViews views;
    MXMLItem state;
    MString mainPath;
    MString productName;
    bool adminRights = false;
    MInstallProcessor processor;
    int32_t failureCount = 0;
    MList<MString> leftovers;
};
