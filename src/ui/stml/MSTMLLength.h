#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

class MDrawer;

/// A width or a height as mark-up gives it: "20" pixels at the style's ordinary size, "50%" of what there is,
/// or by its name a size of the style (`MStyleMetric`, in any case), as "MaxStdIconSizeX".
struct MSTMLLength {
    enum class Kind : uint8_t { Pixels, Percent, Metric };
    static constexpr int32_t Maximum = 1 << 20;

    /// What is too large is cut; a name of no size and an empty text are no pixels.
    [[nodiscard]] static MSTMLLength Parse(const MString& text);

    /// In pixels, at least `minimum`: a share of `total`, of which there is none if that is unlimited.
    [[nodiscard]] int32_t ResolveX(MDrawer& drawer, int32_t total, int32_t minimum) const;
    [[nodiscard]] int32_t ResolveY(MDrawer& drawer, int32_t total, int32_t minimum) const;

    [[nodiscard]] bool IsPercent() const { return kind == Kind::Percent; }

    Kind kind = Kind::Pixels;
    int32_t value = 0;
};
