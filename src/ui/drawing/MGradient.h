#pragma once

#include "foundation/values/MValueEnum.h"
#include "ui/geometry/MRect.h"
#include "ui/image/MColor.h"

#include <cstdint>

/// Which way a gradient runs: from the top or the left, or inverted from the other side. The double forms run
/// from both edges to the middle.
enum class MGradientDirection : int32_t {
    Vertical,
    VerticalInverted,
    VerticalDouble,
    VerticalDoubleInverted,
    Horizontal,
    HorizontalInverted,
    HorizontalDouble,
    HorizontalDoubleInverted,
};

inline constexpr const char* MGradientDirectionNames[] = {
    "Vertical",   "Vertical inverted",   "Vertical double",   "Vertical double inverted",
    "Horizontal", "Horizontal inverted", "Horizontal double", "Horizontal double inverted"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MGradientDirection> = MGradientDirectionNames;

/// The colours of a gradient over an area.
class MGradient {
public:
    MGradient(MColor from, MColor to, MGradientDirection direction, const MRect& area);

    [[nodiscard]] bool IsHorizontal() const { return isHorizontal; }
    /// The colour of a pixel, counted from the top or the left; each channel is rounded to the nearest. What
    /// lies outside has the colour of the nearest end.
    [[nodiscard]] MColor GetColor(int32_t position) const;

private:
    MColor from;
    MColor to;
    bool isHorizontal;
    bool isDouble;
    int32_t last;  ///< the position of the last pixel
};
