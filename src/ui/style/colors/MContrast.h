#pragma once

#include "ui/image/MColor.h"

#include <cstdint>
#include <span>

/// How well colours can be told apart, by the relative luminance of WCAG 2.2. In whole numbers, so that every
/// platform gives the same.
namespace MContrast {

/// What text, and what icons and borders need at least, times `Unit`.
inline constexpr int32_t Unit = 100;
inline constexpr int32_t Text = 450;
inline constexpr int32_t Shape = 300;

/// 0 for black to 65535 for white. The alpha does not count.
[[nodiscard]] int32_t GetLuminance(MColor color);
/// From `Unit` for two colours that are equally bright to 21 times that for black and white.
[[nodiscard]] int32_t GetRatio(MColor one, MColor other);
/// The colour of the same hue and saturation that is closest in lightness and has the ratio against each of
/// the surfaces; where there is none, white or black.
[[nodiscard]] MColor GetReadable(MColor color, std::span<const MColor> surfaces, int32_t ratio);

}  // namespace MContrast
