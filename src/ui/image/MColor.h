#pragma once

#include "foundation/text/MString.h"

#include <bit>
#include <cstdint>

/// A colour by its hue in degrees, 0 (red) to below 360, its saturation and its lightness, 0 to 1. Greys have
/// the hue 0 and the saturation 0.
struct MHSL {
    double hue = 0;
    double saturation = 0;
    double lightness = 0;
};

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

    /// The HSL model, by operations that give the same on every platform. There and back gives the same
    /// colour; values outside of their ranges are cut, hues go around.
    [[nodiscard]] MHSL GetHSL() const;
    [[nodiscard]] static MColor FromHSL(const MHSL& color, uint8_t alpha = 255);

    // Changes by -255 to 255, of which 0 changes nothing; what leaves the range of a channel is cut. The
    // alpha stays.
    /// Farther from middle grey by the curve of `MColorOp::IncContrast`, or nearer by that of `DecContrast`;
    /// all of -255 is grey.
    [[nodiscard]] MColor WithContrast(int32_t change) const;
    /// Adds the change to each of the three colours.
    [[nodiscard]] MColor WithBrightness(int32_t change) const;
    /// Adds a part of 255 to the saturation of HSL.
    [[nodiscard]] MColor WithSaturation(int32_t change) const;
    /// Multiplies the saturation of HSL by a factor of 0 or above.
    [[nodiscard]] MColor WithSaturationTimes(double factor) const;

    friend constexpr bool operator==(const MColor&, const MColor&) = default;
};
