#pragma once

#include "ui/image/MAlphaMask.h"

#include <memory>

struct FT_Bitmap_;
struct FT_LibraryRec_;

/// The coverage that a bitmap of FreeType holds, of any depth; null if it has no pixels or cannot be
/// converted.
[[nodiscard]] std::unique_ptr<MAlphaMask> MMakeGlyphMask(FT_LibraryRec_* library, const FT_Bitmap_& bitmap);
