#pragma once

#include "foundation/module/MModule.h"

/// What the build has made of `data/`, for `MModule::SetEmbeddedBlocks`: as resources the default look with its
/// pictures and the faces that travel with the program; no global data.
[[nodiscard]] MEmbeddedBlocks MGetProgramBlocks();
