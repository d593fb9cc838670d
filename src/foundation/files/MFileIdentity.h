#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <optional>
#include <utility>

/// What tells a file or directory from every other one of the machine, whichever path leads to it: its
/// volume, and its number there.
using MFileIdentity = std::pair<uint64_t, uint64_t>;

/// Of what stands at a path, links followed; nothing if nothing stands there or the system does not tell.
[[nodiscard]] std::optional<MFileIdentity> MFindFileIdentity(const MString& path);

/// Whether a canonical path is that of a directory or leads to a place below it, by whatever links and in
/// whatever case. What does not exist yet is where the part of the path that exists leads.
[[nodiscard]] bool MIsInside(const MString& path, const MString& directory);
