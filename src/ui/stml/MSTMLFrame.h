#pragma once

#include "ui/drawing/MDrawer.h"

#include <algorithm>
#include <cstdint>

/// What surrounds the content of a cell or a row, on every side, in pixels of 100 percent.
struct MSTMLFrame {
    int32_t padding = 0;
    int32_t border = 0;

    /// Of one side, in the size of the style. A border does not vanish.
    [[nodiscard]] MPoint GetSize(MDrawer& drawer) const {
        const int32_t line = GetBorder(drawer);
        return {drawer.ScaleX(padding) + line, drawer.ScaleY(padding) + line};
    }
    [[nodiscard]] int32_t GetBorder(MDrawer& drawer) const {
        return border > 0 ? std::max(1, drawer.ScaleX(border)) : 0;
    }
    [[nodiscard]] int32_t GetWidth(MDrawer& drawer) const { return 2 * GetSize(drawer).x; }
    [[nodiscard]] int32_t GetHeight(MDrawer& drawer) const { return 2 * GetSize(drawer).y; }
};
