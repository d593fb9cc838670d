#pragma once

#include "foundation/text/MString.h"

#include <bit>
#include <cstdint>

/// A colour in 32 bits, its bytes in the order in which pixels stand in memory. The alpha is not multiplied
/// into the others; 255 is opaque.
struct MColor {
    uint8_t blue = 0;
    uint8_t green = 0;
    uint8_t red = 0;
    uint8_t alpha = 255;

    [[nodiscard]] static constexpr MColor FromRGB(uint8_t red, uint8_t green, uint8_t blue,
                                                  uint8_t alpha = 255) {
        return {blue, green, red, alpha};
    }
    /// The four bytes as one little-endian word, blue lowest.
    [[nodiscard]] constexpr uint32_t GetWord() const { return std::bit_cast<uint32_t>(*this); }
    [[nodiscard]] static constexpr MColor FromWord(uint32_t word) { return std::bit_cast<MColor>(word); }

    /// Eight hexadecimal digits, red, green, blue and alpha, as "5A6A7FFF". Parsing takes digits of either
    /// case. Raises "Invalid color to parse ({0})." (0) for any other text.
    [[nodiscard]] MString GetText() const;
    [[nodiscard]] static MColor Parse(const MString& text);

    [[nodiscard]] constexpr MColor WithAlpha(uint8_t newAlpha) const { return {blue, green, red, newAlpha}; }
    /// The complement of the three colours; the alpha stays.
    [[nodiscard]] constexpr MColor Inverted() const {
        return {static_cast<uint8_t>(255 - blue), static_cast<uint8_t>(255 - green),
                static_cast<uint8_t>(255 - red), alpha};
    }
    /// How bright the eye sees it, 0 to 255: (77 red + 150 green + 29 blue) / 256, the weights of ITU-R
    /// BT.601.
    [[nodiscard]] constexpr uint8_t GetLuminance() const {
        return static_cast<uint8_t>((77 * red + 150 * green + 29 * blue) >> 8);
    }
    /// Hue and saturation of this colour with the lightness of another, in the HSL model; the alpha stays.
    /// In whole numbers, so that every platform gives the same.
    [[nodiscard]] MColor WithLightnessOf(MColor other) const;

    friend constexpr bool operator==(const MColor&, const MColor&) = default;
};
