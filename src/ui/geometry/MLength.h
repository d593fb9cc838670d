#pragma once

#include <algorithm>
#include <cstdint>

/// Sizes and places may come from documents with any number in them. Sums are made in 64 bits and cut to this
/// many pixels, so that a place and a size together lie within what an `MRect` holds.
inline constexpr int32_t MaximalLength = 1 << 29;

/// 0 to `MaximalLength`.
[[nodiscard]] constexpr int32_t MClampLength(int64_t length) {
    return static_cast<int32_t>(std::clamp<int64_t>(length, 0, MaximalLength));
}

/// At most `MaximalLength` from 0 in either direction.
[[nodiscard]] constexpr int32_t MClampPlace(int64_t place) {
    return static_cast<int32_t>(std::clamp<int64_t>(place, -MaximalLength, MaximalLength));
}
