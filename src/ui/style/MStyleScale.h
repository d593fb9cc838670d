#pragma once

#include "ui/geometry/MLength.h"
#include "ui/geometry/MPoint.h"

#include <algorithm>
#include <cstdint>

/// How large everything is, in percent of what a definition says, in either direction. All lengths become
/// whole pixels.
struct MStyleScale {
    static constexpr int32_t Least = 25;
    static constexpr int32_t Most = 800;

    int32_t x = 100;
    int32_t y = 100;

    [[nodiscard]] static constexpr int32_t Scale(int32_t value, int32_t percent) {
        const int64_t product = int64_t{value} * percent;
        return MClampPlace((product + (product < 0 ? -50 : 50)) / 100);
    }
    [[nodiscard]] constexpr int32_t GetX(int32_t value) const { return Scale(value, x); }
    [[nodiscard]] constexpr int32_t GetY(int32_t value) const { return Scale(value, y); }
    [[nodiscard]] constexpr MPoint Get(MPoint value) const { return {GetX(value.x), GetY(value.y)}; }

    /// What is the same in both directions, as the width of a line or a radius.
    [[nodiscard]] constexpr int32_t GetSmaller() const { return std::min(x, y); }
    /// A line stays a pixel wide up to 150 percent and has two from 200 on; anything wider grows as all else.
    [[nodiscard]] constexpr int32_t GetLine(int32_t width) const {
        if (width == 1 || width == -1) return GetSmaller() < 200 ? width : 2 * width;
        return Scale(width, GetSmaller());
    }

    friend constexpr bool operator==(const MStyleScale&, const MStyleScale&) = default;
};
