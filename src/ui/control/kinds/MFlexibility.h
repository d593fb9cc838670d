#pragma once

#include <cstdint>

/// Which directions something can stretch in, combined with `|` and `&`.
enum MFlexibility : uint8_t { MFlexibleNone = 0, MFlexibleX = 1, MFlexibleY = 2, MFlexibleBoth = 3 };

constexpr MFlexibility operator|(MFlexibility left, MFlexibility right) {
    return static_cast<MFlexibility>(static_cast<uint8_t>(left) | static_cast<uint8_t>(right));
}

constexpr MFlexibility operator&(MFlexibility left, MFlexibility right) {
    return static_cast<MFlexibility>(static_cast<uint8_t>(left) & static_cast<uint8_t>(right));
}
