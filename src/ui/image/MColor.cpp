#include "ui/image/MColor.h"

#include "foundation/base/MRaise.h"
#include "ui/image/pixels/MPixelLanes.h"
#include "ui/image/pixels/MPixelOperators.h"

#include <algorithm>
#include <cmath>

namespace {

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

uint8_t CutToByte(int32_t value) {
    return static_cast<uint8_t>(std::clamp(value, 0, 255));
}

template <class Function>
MColor ChangeChannels(MColor color, Function change) {
    return {CutToByte(change(color.blue)), CutToByte(change(color.green)), CutToByte(change(color.red)),
            color.alpha};
}

}  // namespace

MString MColor::GetText() const {
    return MFormat("{0x;02}{1x;02}{2x;02}{3x;02}", red, green, blue, alpha);
}

MColor MColor::Parse(const MString& text) {
    if (text.GetLength() != 8) RefuseText(text);
    return FromRGB(ParseByte(text, 0), ParseByte(text, 2), ParseByte(text, 4), ParseByte(text, 6));
}

MColor MColor::WithLightnessOf(MColor other) const {
    return MPixelOperators::WithLightnessOf(MPixelLanes::Repeat(*this), MPixelLanes::Repeat(other))
        .GetColor()
        .WithAlpha(alpha);
}

MHSL MColor::GetHSL() const {
    const auto [low, high] = std::minmax({red, green, blue});
    const int32_t chroma = high - low;
    MHSL color{0, 0, (low + high) / 510.0};
    if (chroma == 0) return color;
    // How far around the circle of six parts, from red.
    const double part = high == red     ? double(green - blue) / chroma
                        : high == green ? 2 + double(blue - red) / chroma
                                        : 4 + double(red - green) / chroma;
    color.hue = 60 * (part < 0 ? part + 6 : part);
    color.saturation = double(chroma) / (255 - std::abs(low + high - 255));
    return color;
}

MColor MColor::FromHSL(const MHSL& color, uint8_t alpha) {
    const double lightness = std::clamp(color.lightness, 0.0, 1.0);
    const double reach = std::clamp(color.saturation, 0.0, 1.0) * std::min(lightness, 1 - lightness);
    const double part = color.hue / 60 - 6 * std::floor(color.hue / 360);
    // A channel is at its highest around its own place on the circle and at its lowest opposite to it.
    const auto channel = [&](double place) {
        const double away = std::abs(part - place);
        const double height = std::clamp(2 - std::min(away, 6 - away), 0.0, 1.0);
        return static_cast<uint8_t>(std::floor(255 * (lightness + reach * (2 * height - 1)) + 0.5));
    };
    return FromRGB(channel(0), channel(2), channel(4), alpha);
}

MColor MColor::WithContrast(int32_t change) const {
    const int32_t factor = 255 + std::clamp(change, -255, 255) * (change > 0 ? 16 : 1);
    return ChangeChannels(*this, [factor](int32_t channel) { return factor * (channel - 127) / 255 + 127; });
}

MColor MColor::WithBrightness(int32_t change) const {
    return ChangeChannels(*this,
                          [change](int32_t channel) { return channel + std::clamp(change, -255, 255); });
}

MColor MColor::WithSaturation(int32_t change) const {
    MHSL color = GetHSL();
    // A grey has no hue that could become visible.
    if (color.saturation > 0) color.saturation += change / 255.0;
    return FromHSL(color, alpha);
}

MColor MColor::WithSaturationTimes(double factor) const {
    MHSL color = GetHSL();
    color.saturation *= factor;
    return FromHSL(color, alpha);
}
