#pragma once

#include "foundation/text/MString.h"

/// A mixin with the maker's data directories, the shared one and the user's. Failures are swallowed: the path
/// is given whether or not it could be created.
class MDataFolders {
public:
    /// The shared data directory, joined with `subdirectory`, created when missing.
    [[nodiscard]] static MString GetDataPath_Global(const MString& subdirectory);
    /// The user's, created when missing; with `fallbackToGlobal` a missing one gives the shared directory.
    [[nodiscard]] static MString GetDataPath_User(const MString& subdirectory, bool fallbackToGlobal = false);
};
