#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

/// Where the system keeps its fonts: the fonts folder of MSpecialFolders.h first, then any others of the
/// platform's convention. Some may be missing.
[[nodiscard]] MList<MString> MGetSystemFontFolders();
