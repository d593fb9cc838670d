#pragma once

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
    /// Deletes the subkey of that name. Raises "Cannot open registry key {0}." or "Cannot delete registry key
    /// {0}." (0).
    static void Delete(const MString& key);
};
