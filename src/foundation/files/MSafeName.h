#pragma once

#include "foundation/text/MString.h"

/// Whether a name from outside, joined to a directory, stays inside it: no ".." among its components, no
/// absolute path, no drive. Both kinds of slashes separate, on every platform. An empty name stays.
[[nodiscard]] bool MIsSafeName(const MString& name);
/// Whether it also is a single component that names a file: not empty, not ".", without a separator, a colon
/// or a zero.
[[nodiscard]] bool MIsSafeFileName(const MString& name);
