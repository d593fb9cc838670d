#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// The name under which definitions know a special folder, without braces; empty for those without one.
/// The names of `temp` and `logs` and the folders at their places disagree, and the last folders have no
/// name at all: definitions rely on what results.
[[nodiscard]] MString MGetFolderMacroName(int32_t folder);
