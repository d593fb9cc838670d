#pragma once

#include "ui/drawing/MOutlines.h"

/// Outlines of round things that turn. Angles are in degrees, clockwise from the right. Only basic operations
/// and square roots are used, so every platform gives the same.
namespace MArc {

/// The point of the unit circle; off by less than a millionth.
[[nodiscard]] MPointF GetDirection(double degrees);
/// A part of a ring, which lies inside of the radius. `from` is below `to` by at most 360.
[[nodiscard]] MOutlines::Outline GetBand(MPointF center, double radius, double width, double from, double to);
/// A line with round ends.
[[nodiscard]] MOutlines::Outline GetPen(MPointF from, MPointF to, double width);

}  // namespace MArc
