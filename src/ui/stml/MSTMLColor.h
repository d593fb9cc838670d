#pragma once

#include "foundation/text/MString.h"
#include "ui/image/MColor.h"

#include <cstdint>

class MDrawer;

/// A colour as mark-up gives it: one of the style by its name (`MStdColor`, in any case) or index, or a fixed
/// one as eight hexadecimal digits (`MColor::Parse`).
struct MSTMLColor {
    static constexpr MColor Transparent{0, 0, 0, 0};

    /// Any other text is transparent.
    [[nodiscard]] static MSTMLColor Parse(const MString& text);

    [[nodiscard]] MColor Get(MDrawer& drawer, bool isInverted) const;

    int32_t index = -1;  ///< of `MStdColor`, -1 for a fixed colour
    MColor color = Transparent;
};
