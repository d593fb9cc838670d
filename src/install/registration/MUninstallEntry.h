#pragma once

#include "foundation/base/MList.h"
#include "foundation/files/MSpecialFolders.h"
#include "foundation/text/MString.h"

/// What the system's list of installed programs shows of a product, and by what it removes it: a subkey of
/// `MUninstallKeyName`.
struct MUninstallEntry {
    MString key;          ///< name of the subkey
    MString displayName;  ///< as users see it
    MString setup;        ///< path of the program that removes the product

    /// Makes the subkey or overwrites its values. Raises "Cannot open registry key {0}.", "Cannot create
    /// registry key {0}." or "Cannot set registry value {0}." (0).
    void Write() const;
    // What follows looks for the subkey of that name in the folders of each of the owners, where the platform
    // keeps its registry in folders. The subkey belongs to the installation in `mainPath` unless it says
    // another one.

    /// Deletes the subkey of the installation; one of another installation is left alone. Raises "Cannot open
    /// registry key {0}." or "Cannot delete registry key {0}." (0) if there is none at all, or if it cannot
    /// be deleted.
    static void Delete(const MString& key, const MString& mainPath, const MList<MFolderOwner>& owners);
    /// Whether there are only subkeys of other installations.
    [[nodiscard]] static bool IsOfAnother(const MString& key, const MString& mainPath,
                                          const MList<MFolderOwner>& owners);
};
