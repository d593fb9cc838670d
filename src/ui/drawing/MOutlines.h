#pragma once

#include "ui/geometry/MRect.h"

#include <cstdint>
#include <vector>

/// The outlines of shapes, as polygons that run clockwise. Curves are close enough to look round: no point is
/// farther from the true curve than a fiftieth of a pixel. Only basic operations and square roots are used,
/// so every platform gives the same.
namespace MOutlines {

using Outline = std::vector<MPointF>;

[[nodiscard]] Outline GetRectangle(double left, double top, double right, double bottom);
[[nodiscard]] Outline GetCircle(MPointF center, double radius);
/// The outer edge of the rectangle's pixels, moved inwards by `inset`, with corners of a radius that is cut
/// to what fits.
[[nodiscard]] Outline GetRoundRectangle(const MRect& rect, double radius, double inset);
/// What lies inside of the edge as far as `lineWidth`: the edge and, to be taken away, what is left within.
[[nodiscard]] std::vector<Outline> GetRoundFrame(const MRect& rect, double radius, double lineWidth);
[[nodiscard]] std::vector<Outline> GetRing(MPointF center, double radius, double lineWidth);
/// A line that is a pixel wide and reaches half a pixel beyond its ends.
[[nodiscard]] Outline GetLine(MPointF from, MPointF to);
/// The same outline the other way round, to be taken away.
[[nodiscard]] Outline GetReversed(Outline outline);

}  // namespace MOutlines
