#pragma once

#include "ui/geometry/MRect.h"

#include <cstdint>
#include <span>
#include <vector>

/// How much of each pixel lies inside of outlines, exactly: the area that the outlines enclose there, added up over
/// all of them and cut to one pixel. Outlines that run the other way round take away.
///
/// What a pixel gets does not depend on the area that is looked at, and is the same on every platform: the areas are
/// computed in doubles by the four basic operations only, rounded to 2^-20 of a pixel and summed up in whole numbers.
class MCoverage {
public:
    /// Only pixels of `area` are looked at.
    explicit MCoverage(const MRect& area);

    /// A closed outline; the last point leads back to the first one.
    void AddOutline(std::span<const MPointF> points);

    [[nodiscard]] const MRect& GetArea() const { return area; }
    /// The coverage of the pixels of a row of the area, 0 to 255 each; `mask` has the area's width.
    void GetRow(int32_t y, uint8_t* mask) const;

private:
    void AddLine(MPointF from, MPointF to);
    void AddSpan(int32_t row, double x0, double x1, double height);

    MRect area;
    /// For each pixel, by how much its sum differs from that of the pixel to its left.
    std::vector<int32_t> steps;
};
