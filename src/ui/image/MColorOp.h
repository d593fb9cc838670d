#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// How a source pixel is combined with the one that it is painted over. The arithmetic of each stands in
/// MPixelOperators.h.
enum class MColorOp : int32_t {
    None,
    Alphablend,
    Modulate,
    Copy,
    Overlay,
    Color,
    Invert,
    Add,
    Subtract,
    Lighten,
    Darken,
    Difference,
    IncContrast,
    DecContrast,
    LightenByContrast,
    DarkenByContrast,
    AddAndOverflow,
};

inline constexpr int32_t MColorOpCount = 17;

/// The drawing interface calls it the mode of an operation.
using MDrawMode = MColorOp;

/// The operation of a name, in any case; the first one for an empty text. Raises "Invalid MColorOp identifier
/// to parse ({0})." (0).
[[nodiscard]] MColorOp MParseColorOp(const MString& text);
[[nodiscard]] MString MGetColorOpName(MColorOp operation);
