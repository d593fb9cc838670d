#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// How a picture fills an area that is larger than it.
enum class MBitmapFill : int32_t {
    Stretch,
    HPattern,
    VPattern,
    Pattern,
};

/// The way of a name, in any case; `Stretch` for an empty text. Raises "Invalid MBitmapFill identifier to
/// parse ({0})." (0).
[[nodiscard]] MBitmapFill MParseBitmapFill(const MString& text);
[[nodiscard]] MString MGetBitmapFillName(MBitmapFill fill);

/// To which side of an area a picture keeps that does not fill it.
enum class MBitmapAlignment : int32_t {
    Left,
    Center,
    Right,
    Top,
    Bottom,
};

/// The side of a name, in any case; the first one for any other text.
[[nodiscard]] MBitmapAlignment MParseBitmapAlignment(const MString& text);
[[nodiscard]] MString MGetBitmapAlignmentName(MBitmapAlignment alignment);
