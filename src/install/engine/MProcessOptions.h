#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// What a run does with the items of a definition.
enum class MProcess { Install, Uninstall };

/// How the items of one destination are worked on.
struct MProcessOptions {
    bool uninstall = false;
    /// Directories without a "." in their name are dissolved into the destination.
    bool ignoreSubdirs = false;
    /// A name that ends in one of the first gets the extension at the same index of the second.
    MList<MString> sourceExtensions;
    MList<MString> destinationExtensions;
};
