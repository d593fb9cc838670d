#pragma once

#include "ui/image/MColor.h"
#include "ui/image/MColorOp.h"

#include <algorithm>

/// How colours are given to OpenGL, so that many layers of them come to what the pixel operators paint. These
/// divide by 256 and cut, where OpenGL divides by 255 and rounds.
namespace MOpenGLColors {

/// Whether a mode is drawn as Alphablend.
[[nodiscard]] constexpr bool IsBlending(MDrawMode mode) {
    switch (mode) {
    case MDrawMode::Modulate:
    case MDrawMode::Copy:
    case MDrawMode::Invert:
    case MDrawMode::Add:
    case MDrawMode::Subtract: return false;
    default: return true;
    }
}

/// A colour whose alpha is still to be multiplied with that of a mask, or that is combined in another way: the
/// operators give it darker by up to one.
[[nodiscard]] constexpr MColor GetWeakened(MColor color) {
    const auto weaken = [](uint8_t channel) { return static_cast<uint8_t>(channel > 0 ? channel - 1 : 0); };
    return {weaken(color.blue), weaken(color.green), weaken(color.red), color.alpha};
}

/// A colour that is blended with the alpha that it has. What it leaves of the ground, (255 - a) / 256, is that
/// of the next alpha; its own channels are such that the sum of both errs to neither side.
[[nodiscard]] constexpr MColor GetBlended(MColor color) {
    const int32_t alpha = color.alpha;
    if (alpha == 0 || alpha == 255) return GetWeakened(color);
    // (channel * alpha / 256 - 1 / 4) * 255 / (alpha + 1), rounded.
    const auto convert = [alpha](uint8_t channel) {
        const int32_t divisor = 512 * (alpha + 1);
        const int32_t dividend = 510 * (channel * alpha - 64) + divisor / 2;
        return static_cast<uint8_t>(std::clamp(dividend / divisor, 0, 255));
    };
    return {convert(color.blue), convert(color.green), convert(color.red), static_cast<uint8_t>(alpha + 1)};
}

/// The alpha of a pixel of a mask, to be multiplied with another one. Without this, a bright ground below a weak dark pixel would come out brighter by three.
[[nodiscard]] constexpr uint8_t GetMaskAlpha(uint8_t share) {
    return share > 0 && share < 128 ? static_cast<uint8_t>(share + 1) : share;
}

}  // namespace MOpenGLColors
