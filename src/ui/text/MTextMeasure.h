#pragma once

#include <algorithm>
#include <cstdint>

/// Characters that take no part in a text; a line feed among them.
[[nodiscard]] constexpr bool MIsControl(char32_t character) {
    return character < 32;
}

/// A sum of pixels that stays where rectangles have their edges, however long the text and odd the font.
[[nodiscard]] constexpr int32_t MAddPixels(int64_t left, int64_t right) {
    constexpr int64_t Limit = 1 << 30;
    return static_cast<int32_t>(std::clamp(left + right, -Limit, Limit));
}
