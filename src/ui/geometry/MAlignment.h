#pragma once

#include "foundation/text/MString.h"
#include "ui/geometry/MRect.h"

#include <cstdint>

/// Where something stands in a rectangle: at an edge of either direction, else in the middle; or all over it.
enum MAlignment : uint8_t {
    MAlignCenter = 0,
    MAlignLeft = 1,
    MAlignRight = 2,
    MAlignTop = 4,
    MAlignBottom = 8,
    MAlignFill = 16,
};

constexpr MAlignment operator|(MAlignment left, MAlignment right) {
    return static_cast<MAlignment>(static_cast<uint8_t>(left) | static_cast<uint8_t>(right));
}

/// The value of a name such as "left,top" or "All", compared ignoring case. Raises "Invalid MAlignment
/// identifier to parse ({0})." (0).
[[nodiscard]] MAlignment MParseAlignment(const MString& name);

/// Where something of a size stands in a rectangle. What is larger begins at the left or top edge and goes
/// beyond the other one.
[[nodiscard]] MRect MAlignInside(const MRect& rect, MPoint size, MAlignment alignment);
