#pragma once

#include "foundation/text/MString.h"

/// The file to write for a path. A name with the extension "aaxplugin" denotes a bundle directory whose
/// binary lies inside, by the architecture that the paths tell: `X.aaxplugin` becomes
/// `X.aaxplugin/Contents/x64/X.aaxplugin`, or `Win32` in place of `x64`. Any other path stays.
[[nodiscard]] MString MGetBundlePath(const MString& path);
