#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// What a downloader takes for names in a list, and so what a set of files to download may hold.
namespace MDownloadNames {

/// No name in a list begins so: what a download keeps for itself does.
inline constexpr const char* State = "downloader.dat";
inline constexpr int32_t MaximumDepth = 250;
inline constexpr int32_t MaximumLength = 4000;

/// Whether the first component of a name is one of the downloader's own, or a file system's short name of
/// one: "DOWNLO~1.DAT".
[[nodiscard]] bool IsTaken(const MString& component);

}  // namespace MDownloadNames
