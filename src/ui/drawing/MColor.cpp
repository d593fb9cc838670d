#include "ui/drawing/MColor.h"

#include "foundation/MRaise.h"

#include <algorithm>
#include <cstdlib>

namespace {

/// Lightness times two, and how far the colours may be spread at it; both 0 to 510 and 0 to 255.
struct Lightness {
    explicit Lightness(MColor color) {
        const auto [low, high] = std::minmax({color.blue, color.green, color.red});
        doubled = low + high;
        spread = 255 - std::abs(doubled - 255);
        lowest = low;
        chroma = high - low;
    }

    int32_t doubled;
    int32_t spread;
    int32_t lowest;
    int32_t chroma;
};

bool IsHexDigit(MChar character) {
    const MChar lower = character.ToLower();
    return lower.IsDigit() || (lower >= 'a' && lower <= 'f');
}

[[noreturn]] void RefuseText(const MString& text) {
    MRaise(MExceptionGeneral, "Invalid color to parse ({0}).", text);
}

uint8_t ParseByte(const MString& text, int32_t index) {
    const MChar high = text[index];
    const MChar low = text[index + 1];
    if (!IsHexDigit(high) || !IsHexDigit(low)) RefuseText(text);
    return static_cast<uint8_t>(high.ToHexDigit() << 4 | low.ToHexDigit());
}

}  // namespace

MString MColor::GetText() const {
    return MFormat("{0x;02}{1x;02}{2x;02}{3x;02}", red, green, blue, alpha);
}

MColor MColor::Parse(const MString& text) {
    if (text.GetLength() != 8) RefuseText(text);
    return FromRGB(ParseByte(text, 0), ParseByte(text, 2), ParseByte(text, 4), ParseByte(text, 6));
}

// At a fixed hue and saturation each channel lies at a fixed part of the spread above the lowest one, and the
// chroma takes a fixed part of the spread, which depends on the lightness alone.
MColor MColor::WithLightnessOf(MColor other) const {
    const Lightness from(*this);
    const Lightness to(other);
    if (from.chroma == 0) {
        const auto grey = static_cast<uint8_t>((to.doubled + 1) / 2);
        return {grey, grey, grey, alpha};
    }
    const int32_t base = to.doubled * from.spread - from.chroma * to.spread;
    const auto move = [&](uint8_t channel) {
        const int32_t doubled = base + 2 * (channel - from.lowest) * to.spread;
        return static_cast<uint8_t>((doubled + from.spread) / (2 * from.spread));
    };
    return {move(blue), move(green), move(red), alpha};
}
