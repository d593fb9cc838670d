#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <optional>

/// The volume that a folder is on.
struct MVolume {
    MString name;                      ///< exactly equal for folders on one volume; empty if it is not known
    std::optional<int64_t> freeBytes;  ///< that this user may still fill, if the system tells
    bool isReadOnly = false;
};

/// What can be known about a folder before anything is created in it.
struct MFolderFacts {
    MVolume volume;
    /// Why this process cannot create files there, and what to do; empty if it can.
    MString fault;
};

/// Looks at a folder that may not exist yet: what is missing is judged by the nearest folder above it that
/// stands. Takes a canonical path, as a user has typed it. Creates nothing, follows links, and may be called
/// in any thread; a volume that is far away may let it wait.
[[nodiscard]] MFolderFacts MFindFolderFacts(const MString& path);

// What the platform tells for that.

/// The volume of a folder that stands.
[[nodiscard]] MVolume MFindVolume(const MString& folder);
/// What keeps this system from taking a path as that of a new folder, as a sentence; empty if nothing does.
/// `folder` is the part of the path that stands.
[[nodiscard]] MString MFindPathFault(const MString& path, const MString& folder);
