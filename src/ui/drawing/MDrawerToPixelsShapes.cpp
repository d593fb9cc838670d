#include "ui/drawing/MDrawerToPixels.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>
#include <vector>

using MOutlines::Outline;

namespace {

constexpr double Far = 1 << 29;

int32_t ToPixel(double value) {
    return static_cast<int32_t>(std::floor(std::clamp(value, -Far, Far) + 0.5));
}

/// The pixels that outlines can touch.
MRect FindBounds(std::span<const Outline> outlines) {
    double left = Far;
    double top = Far;
    double right = -Far;
    double bottom = -Far;
    for (const Outline& outline : outlines) {
        for (const MPointF& point : outline) {
            left = std::min(left, point.x);
            top = std::min(top, point.y);
            right = std::max(right, point.x);
            bottom = std::max(bottom, point.y);
        }
    }
    return {ToPixel(left), ToPixel(top), ToPixel(right), ToPixel(bottom)};
}

/// A line pixel by pixel along its longer axis.
class LineWalk {
public:
    LineWalk(MPoint from, MPoint to)
        : start(from), way(to - from), steps(std::max(std::abs(way.x), std::abs(way.y))) {}

    /// The first and the last step that can lie in an area; the end is in front of the beginning if none can.
    [[nodiscard]] std::pair<int32_t, int32_t> GetStepsIn(const MRect& area) const {
        const bool isFlat = std::abs(way.x) >= std::abs(way.y);
        const int32_t origin = isFlat ? start.x : start.y;
        const int32_t least = isFlat ? area.left : area.top;
        const int32_t most = isFlat ? area.right : area.bottom;
        const bool isForward = (isFlat ? way.x : way.y) >= 0;
        return {std::max(0, isForward ? least - origin : origin - most),
                std::min(steps, isForward ? most - origin : origin - least)};
    }
    [[nodiscard]] MPoint GetPlace(int32_t step) const {
        return start + MPoint{GetDistance(way.x, step), GetDistance(way.y, step)};
    }

private:
    /// Halves are rounded away from the start, so that a line looks the same in all directions.
    [[nodiscard]] int32_t GetDistance(int32_t distance, int32_t step) const {
        if (steps == 0) return 0;
        const int64_t doubled = 2 * int64_t{distance} * step;
        return static_cast<int32_t>((doubled + (doubled < 0 ? -steps : steps)) / (2 * int64_t{steps}));
    }

    MPoint start;
    MPoint way;
    int32_t steps;
};

}  // namespace

MCoverage MDrawerToPixels::GetCoverage(std::span<const Outline> outlines) const {
    MCoverage coverage(GetPaintable(FindBounds(outlines)));
    for (const Outline& outline : outlines) coverage.AddOutline(outline);
    return coverage;
}

void MDrawerToPixels::FillShape(std::span<const Outline> outlines, MColor color, MDrawMode mode) {
    FillCoverage(GetCoverage(outlines), color, mode);
}

void MDrawerToPixels::FillOutlines(std::span<const Outline> outlines, MColor color, MDrawMode mode) {
    Paint("FillOutlines", [&] { FillShape(Shift(outlines), color, mode); });
}

void MDrawerToPixels::FillOutlinesGradient(std::span<const Outline> outlines, const MRect& rect, MColor from,
                                           MColor to, MGradientDirection direction, MDrawMode mode) {
    Paint("FillOutlinesGradient", [&] {
        const MRect area = Shift(rect);
        FillCoverageGradient(GetCoverage(Shift(outlines)), MGradient(from, to, direction, area), area, mode);
    });
}

void MDrawerToPixels::Line(MPoint from, MPoint to, MColor color) {
    Paint("Line", [&] {
        const LineWalk walk(Shift(from), Shift(to));
        const auto [first, last] = walk.GetStepsIn(GetPaintable(GetBounds()));
        for (int32_t step = first; step <= last; ++step) {
            const MPoint place = walk.GetPlace(step);
            FillPart({place.x, place.y, place.x, place.y}, color, GetLineMode());
        }
    });
}

void MDrawerToPixels::SetPixelF(MPointF point, MColor color) {
    Paint("SetPixelF", [&] {
        const MPointF place = Shift(point);
        const Outline square =
            MOutlines::GetRectangle(place.x - 0.5, place.y - 0.5, place.x + 0.5, place.y + 0.5);
        FillShape({&square, 1}, color, GetBlendMode());
    });
}

void MDrawerToPixels::LineF(MPointF from, MPointF to, MColor color) {
    Paint("LineF", [&] {
        const Outline line = MOutlines::GetLine(Shift(from), Shift(to));
        FillShape({&line, 1}, color, GetBlendMode());
    });
}

void MDrawerToPixels::Rectangle(const MRect& rect, MColor color, MDrawMode mode) {
    Paint("Rectangle", [&] {
        const MRect outer = Shift(rect);
        if (outer.GetWidth() < 3 || outer.GetHeight() < 3) return FillPart(outer, color, mode);
        FillPart({outer.left, outer.top, outer.right, outer.top}, color, mode);
        FillPart({outer.left, outer.bottom, outer.right, outer.bottom}, color, mode);
        FillPart({outer.left, outer.top + 1, outer.left, outer.bottom - 1}, color, mode);
        FillPart({outer.right, outer.top + 1, outer.right, outer.bottom - 1}, color, mode);
    });
}

void MDrawerToPixels::FillRectangle(const MRect& rect, MColor color, MDrawMode mode) {
    Paint("FillRectangle", [&] { FillPart(Shift(rect), color, mode); });
}

void MDrawerToPixels::FillRectangleGradient(const MRect& rect, MColor from, MColor to,
                                            MGradientDirection direction, MDrawMode mode) {
    Paint("FillRectangleGradient", [&] {
        const MRect area = Shift(rect);
        FillGradient(area, MGradient(from, to, direction, area), mode);
    });
}

void MDrawerToPixels::RoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) {
    Paint("RoundRectangle",
          [&] { FillShape(MOutlines::GetRoundFrame(Shift(rect), radius, 1), color, mode); });
}

void MDrawerToPixels::FillRoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) {
    Paint("FillRoundRectangle", [&] {
        const Outline outline = MOutlines::GetRoundRectangle(Shift(rect), radius, 0);
        FillShape({&outline, 1}, color, mode);
    });
}

void MDrawerToPixels::Circle(MPointF center, double radius, MColor color, MDrawMode mode) {
    Paint("Circle", [&] { FillShape(MOutlines::GetRing(Shift(center), radius, 1), color, mode); });
}

void MDrawerToPixels::FillCircle(MPointF center, double radius, MColor color, MDrawMode mode) {
    Paint("FillCircle", [&] {
        const Outline outline = MOutlines::GetCircle(Shift(center), radius);
        FillShape({&outline, 1}, color, mode);
    });
}

void MDrawerToPixels::FillTriangle(MPointF p1, MPointF p2, MPointF p3, MColor color, MDrawMode mode) {
    Paint("FillTriangle", [&] {
        const Outline outline = {Shift(p1), Shift(p2), Shift(p3)};
        FillShape({&outline, 1}, color, mode);
    });
}
