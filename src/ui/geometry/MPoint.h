#pragma once

#include "ui/geometry/MAxis.h"

#include <cstdint>

/// A place in pixels; x grows to the right, y downwards.
struct MPoint {
    int32_t x = 0;
    int32_t y = 0;

    [[nodiscard]] constexpr int32_t& operator[](MAxis axis) { return axis == MAxis::X ? x : y; }
    [[nodiscard]] constexpr int32_t operator[](MAxis axis) const { return axis == MAxis::X ? x : y; }

    friend bool operator==(const MPoint&, const MPoint&) = default;
    friend MPoint operator+(MPoint a, MPoint b) { return {a.x + b.x, a.y + b.y}; }
    friend MPoint operator-(MPoint a, MPoint b) { return {a.x - b.x, a.y - b.y}; }
};

/// A place between pixels: the pixel (x, y) covers the square from (x - 0.5, y - 0.5) to (x + 0.5, y + 0.5).
struct MPointF {
    double x = 0;
    double y = 0;
};
