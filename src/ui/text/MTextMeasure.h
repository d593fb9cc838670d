#pragma once

#include <algorithm>
#include <cstdint>

/// Characters that take no part in a text, having neither a picture nor a width: controls, a line feed among
/// them, the soft hyphen, spaces and joiners without width, marks of direction, variations and byte order,
/// separators of lines and paragraphs.
[[nodiscard]] constexpr bool MIsInvisible(char32_t character) {
    const auto isFrom = [character](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    if (character < 0xAD) return character < 32 || isFrom(0x7F, 0x9F);
    return character == 0xAD || character == 0x61C || isFrom(0x200B, 0x200F) || isFrom(0x2028, 0x202E) ||
           isFrom(0x2060, 0x206F) || isFrom(0xFE00, 0xFE0F) || character == 0xFEFF;
}

/// A sum of pixels that stays where rectangles have their edges, however long the text and odd the font.
[[nodiscard]] constexpr int32_t MAddPixels(int64_t left, int64_t right) {
    constexpr int64_t Limit = 1 << 30;
    return static_cast<int32_t>(std::clamp(left + right, -Limit, Limit));
}
