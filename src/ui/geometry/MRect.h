#pragma once

#include "ui/geometry/MPoint.h"

#include <algorithm>

/// A rectangle of pixels that includes its right and its bottom edge. A rectangle whose right edge is left of
/// its left one, or whose bottom is above its top, is empty; the canonical empty one is {0, 0, -1, -1}.
///
/// Edges lie within plus and minus 2^30, so widths and shifts stay within 32 bits.
struct MRect {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = -1;
    int32_t bottom = -1;

    [[nodiscard]] static constexpr MRect FromSize(int32_t left, int32_t top, int32_t width, int32_t height) {
        return {left, top, left + width - 1, top + height - 1};
    }

    /// 0 or below for an empty one.
    [[nodiscard]] constexpr int32_t GetWidth() const { return right - left + 1; }
    [[nodiscard]] constexpr int32_t GetHeight() const { return bottom - top + 1; }
    /// The first and the last pixel along an axis, and how many there are.
    [[nodiscard]] constexpr int32_t GetLow(MAxis axis) const { return axis == MAxis::X ? left : top; }
    [[nodiscard]] constexpr int32_t GetHigh(MAxis axis) const { return axis == MAxis::X ? right : bottom; }
    [[nodiscard]] constexpr int32_t GetLength(MAxis axis) const { return GetHigh(axis) - GetLow(axis) + 1; }
    constexpr void SetLow(MAxis axis, int32_t low) { (axis == MAxis::X ? left : top) = low; }
    constexpr void SetHigh(MAxis axis, int32_t high) { (axis == MAxis::X ? right : bottom) = high; }
    [[nodiscard]] constexpr bool IsEmpty() const { return right < left || bottom < top; }
    [[nodiscard]] constexpr MPoint GetTopLeft() const { return {left, top}; }

    [[nodiscard]] constexpr bool Contains(MPoint point) const {
        return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
    }
    [[nodiscard]] constexpr MRect Shifted(MPoint offset) const {
        return {left + offset.x, top + offset.y, right + offset.x, bottom + offset.y};
    }
    /// Smaller by so many pixels on each side, or larger by a negative count.
    [[nodiscard]] constexpr MRect Shrunk(int32_t x, int32_t y) const {
        return {left + x, top + y, right - x, bottom - y};
    }
    /// What both have; the canonical empty one if that is nothing.
    [[nodiscard]] constexpr MRect Intersected(const MRect& other) const {
        const MRect common{std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                           std::min(bottom, other.bottom)};
        return common.IsEmpty() ? MRect() : common;
    }
    /// The smallest one around both; an empty one adds nothing.
    [[nodiscard]] constexpr MRect United(const MRect& other) const {
        if (other.IsEmpty()) return *this;
        if (IsEmpty()) return other;
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }

    friend constexpr bool operator==(const MRect&, const MRect&) = default;
};
