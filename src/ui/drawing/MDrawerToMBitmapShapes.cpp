#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/drawing/MPaintGuard.h"

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
MRect GetBounds(std::span<const Outline> outlines) {
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

void MDrawerToMBitmap::FillPart(const MRect& rect, MColor color, MDrawMode mode) {
    const MRect visible = GetPaintable(rect);
    const MPixelRows& operations = MGetPixelRows(mode);
    for (int32_t y = visible.top; y <= visible.bottom; ++y)
        operations.fill(pixels + int64_t{bitmap->GetWidth()} * y + visible.left, visible.GetWidth(), color);
}

void MDrawerToMBitmap::FillOutlines(std::span<const Outline> outlines, MColor color, MDrawMode mode) {
    MCoverage coverage(GetPaintable(GetBounds(outlines)));
    for (const Outline& outline : outlines) coverage.AddOutline(outline);
    PaintCoverage(coverage, color, mode);
}

void MDrawerToMBitmap::PaintCoverage(const MCoverage& coverage, MColor color, MDrawMode mode) {
    const MRect& area = coverage.GetArea();
    if (area.IsEmpty()) return;
    const MPixelRows& operations = MGetPixelRows(mode);
    std::vector<uint8_t> mask(static_cast<size_t>(area.GetWidth()));
    for (int32_t y = area.top; y <= area.bottom; ++y) {
        coverage.GetRow(y, mask.data());
        MColor* row = pixels + int64_t{bitmap->GetWidth()} * y + area.left;
        // Some modes change a pixel even where the shape covers nothing of it.
        const auto isCovered = [](uint8_t share) { return share != 0; };
        for (auto run = mask.begin(); (run = std::find_if(run, mask.end(), isCovered)) != mask.end();) {
            const auto end = std::find(run, mask.end(), uint8_t{0});
            operations.mask(row + (run - mask.begin()), &*run, static_cast<int32_t>(end - run), color);
            run = end;
        }
    }
}

void MDrawerToMBitmap::SetPixel(MPoint point, MColor color) {
    Paint("MDrawerToMBitmap::SetPixel", [&] {
        const MPoint place = Shift(point);
        FillPart({place.x, place.y, place.x, place.y}, color, GetPixelMode());
    });
}

void MDrawerToMBitmap::Line(MPoint from, MPoint to, MColor color) {
    Paint("MDrawerToMBitmap::Line", [&] {
        const LineWalk walk(Shift(from), Shift(to));
        const auto [first, last] = walk.GetStepsIn(GetPaintable(bitmap->GetRect()));
        for (int32_t step = first; step <= last; ++step) {
            const MPoint place = walk.GetPlace(step);
            FillPart({place.x, place.y, place.x, place.y}, color, GetPixelMode());
        }
    });
}

void MDrawerToMBitmap::SetPixelF(MPointF point, MColor color) {
    Paint("MDrawerToMBitmap::SetPixelF", [&] {
        const MPointF place = Shift(point);
        const Outline square =
            MOutlines::GetRectangle(place.x - 0.5, place.y - 0.5, place.x + 0.5, place.y + 0.5);
        FillOutlines({&square, 1}, color, GetBlendMode());
    });
}

void MDrawerToMBitmap::LineF(MPointF from, MPointF to, MColor color) {
    Paint("MDrawerToMBitmap::LineF", [&] {
        const Outline line = MOutlines::GetLine(Shift(from), Shift(to));
        FillOutlines({&line, 1}, color, GetBlendMode());
    });
}

void MDrawerToMBitmap::Rectangle(const MRect& rect, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::Rectangle", [&] {
        const MRect outer = Shift(rect);
        if (outer.GetWidth() < 3 || outer.GetHeight() < 3) return FillPart(outer, color, mode);
        FillPart({outer.left, outer.top, outer.right, outer.top}, color, mode);
        FillPart({outer.left, outer.bottom, outer.right, outer.bottom}, color, mode);
        FillPart({outer.left, outer.top + 1, outer.left, outer.bottom - 1}, color, mode);
        FillPart({outer.right, outer.top + 1, outer.right, outer.bottom - 1}, color, mode);
    });
}

void MDrawerToMBitmap::FillRectangle(const MRect& rect, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillRectangle", [&] { FillPart(Shift(rect), color, mode); });
}

void MDrawerToMBitmap::FillRectangleGradient(const MRect& rect, MColor from, MColor to,
                                             MGradientDirection direction, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillRectangleGradient", [&] {
        const MRect area = Shift(rect);
        const MRect visible = GetPaintable(area);
        if (visible.IsEmpty()) return;
        const bool isHorizontal = direction >= MGradientDirection::Horizontal;
        const MGradient gradient(from, to, direction, isHorizontal ? area.GetWidth() : area.GetHeight());
        std::vector<MColor> colors;
        for (int32_t x = visible.left; isHorizontal && x <= visible.right; ++x)
            colors.push_back(gradient.GetColor(x - area.left));
        const MPixelRows& operations = MGetPixelRows(mode);
        for (int32_t y = visible.top; y <= visible.bottom; ++y) {
            MColor* row = pixels + int64_t{bitmap->GetWidth()} * y + visible.left;
            if (isHorizontal)
                operations.blit(row, colors.data(), visible.GetWidth(), 255);
            else
                operations.fill(row, visible.GetWidth(), gradient.GetColor(y - area.top));
        }
    });
}

void MDrawerToMBitmap::RoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::RoundRectangle", [&] {
        const MRect outer = Shift(rect);
        const Outline outlines[] = {
            MOutlines::GetRoundRectangle(outer, radius, 0),
            MOutlines::GetReversed(MOutlines::GetRoundRectangle(outer, radius, 1)),
        };
        FillOutlines(outlines, color, mode);
    });
}

void MDrawerToMBitmap::FillRoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillRoundRectangle", [&] {
        const Outline outline = MOutlines::GetRoundRectangle(Shift(rect), radius, 0);
        FillOutlines({&outline, 1}, color, mode);
    });
}

void MDrawerToMBitmap::Circle(MPointF center, double radius, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::Circle", [&] {
        const Outline outlines[] = {
            MOutlines::GetCircle(Shift(center), radius),
            MOutlines::GetReversed(MOutlines::GetCircle(Shift(center), radius - 1)),
        };
        FillOutlines(outlines, color, mode);
    });
}

void MDrawerToMBitmap::FillCircle(MPointF center, double radius, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillCircle", [&] {
        const Outline outline = MOutlines::GetCircle(Shift(center), radius);
        FillOutlines({&outline, 1}, color, mode);
    });
}

void MDrawerToMBitmap::FillTriangle(MPointF p1, MPointF p2, MPointF p3, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillTriangle", [&] {
        const Outline outline = {Shift(p1), Shift(p2), Shift(p3)};
        FillOutlines({&outline, 1}, color, mode);
    });
}
