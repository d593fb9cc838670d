#pragma once

#include "foundation/files/MFolderLock.h"

#include <memory>

/// What keeps two setups out of each other's way while they install or remove: the lock of the user's data
/// folder of the maker, where the presets of all products are, and that of the product's main directory.
class MSetupLocks {
public:
    /// Takes both in the name of a product. A main directory that does not exist yet is made for it, if that
    /// can be. Raises what `MFolderLock` raises.
    MSetupLocks(const MString& mainPath, const MString& productName);

private:
    std::unique_ptr<MFolderLock> userData;
    std::unique_ptr<MFolderLock> product;
};
