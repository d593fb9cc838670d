#pragma once

#include <cstdint>

/// Where text stands in a rectangle: one of each direction, combined with `|`. Left and top are 0.
enum MTextAlignment : int32_t {
    MTextLeft = 0,
    MTextCenter = 1,
    MTextRight = 2,
    MTextTop = 0,
    MTextBottom = 4,
    MTextMiddle = 8,
};

constexpr MTextAlignment operator|(MTextAlignment left, MTextAlignment right) {
    return static_cast<MTextAlignment>(static_cast<int32_t>(left) | static_cast<int32_t>(right));
}
