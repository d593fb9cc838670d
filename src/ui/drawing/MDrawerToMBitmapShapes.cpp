#include "ui/drawing/MDrawerToMBitmap.h"

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

/// An alpha of which a part is covered, as painting through a mask has it.
uint8_t Scale(uint8_t share, uint8_t alpha) {
    return static_cast<uint8_t>(((share + 1) * alpha) >> 8);
}

/// The colours of the columns of `visible` in a gradient over `area`.
std::vector<MColor> GetColumnColors(const MGradient& gradient, const MRect& area, const MRect& visible) {
    std::vector<MColor> colors;
    for (int32_t x = visible.left; x <= visible.right; ++x)
        colors.push_back(gradient.GetColor(x - area.left));
    return colors;
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

MCoverage MDrawerToMBitmap::GetCoverage(std::span<const Outline> outlines) const {
    MCoverage coverage(GetPaintable(GetBounds(outlines)));
    for (const Outline& outline : outlines) coverage.AddOutline(outline);
    return coverage;
}

void MDrawerToMBitmap::PaintRun(const MPixelRows& operations, const MCoverageRun& run, MColor color) {
    MColor* row = pixels + int64_t{bitmap->GetWidth()} * run.start.y + run.start.x;
    if (run.shares)
        operations.mask(row, run.shares, run.count, color);
    else
        operations.fill(row, run.count, color.WithAlpha(Scale(run.share, color.alpha)));
}

void MDrawerToMBitmap::FillShape(std::span<const Outline> outlines, MColor color, MDrawMode mode) {
    const MPixelRows& operations = MGetPixelRows(mode);
    GetCoverage(outlines).ForEachRun([&](const MCoverageRun& run) { PaintRun(operations, run, color); });
}

void MDrawerToMBitmap::FillOutlines(std::span<const Outline> outlines, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillOutlines", [&] { FillShape(Shift(outlines), color, mode); });
}

void MDrawerToMBitmap::FillOutlinesGradient(std::span<const Outline> outlines, const MRect& rect, MColor from,
                                            MColor to, MGradientDirection direction, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillOutlinesGradient", [&] {
        const MRect area = Shift(rect);
        const MGradient gradient(from, to, direction, area);
        const MPixelRows& operations = MGetPixelRows(mode);
        const MCoverage coverage = GetCoverage(Shift(outlines));
        if (!gradient.IsHorizontal())
            return coverage.ForEachRun([&](const MCoverageRun& run) {
                PaintRun(operations, run, gradient.GetColor(run.start.y - area.top));
            });
        const std::vector<MColor> colors = GetColumnColors(gradient, area, coverage.GetArea());
        std::vector<MColor> covered;
        coverage.ForEachRun([&](const MCoverageRun& run) {
            const MColor* first = &colors[static_cast<size_t>(run.start.x - coverage.GetArea().left)];
            covered.assign(first, first + run.count);
            for (int32_t i = 0; i < run.count; ++i)
                covered[static_cast<size_t>(i)].alpha = Scale(run.GetShare(i), first[i].alpha);
            operations.blit(pixels + int64_t{bitmap->GetWidth()} * run.start.y + run.start.x, covered.data(),
                            run.count, 255);
        });
    });
}

void MDrawerToMBitmap::SetPixel(MPoint point, MColor color) {
    Paint("MDrawerToMBitmap::SetPixel", [&] {
        const MPoint place = Shift(point);
        const MColor written = hasAlphaChannel ? color : color.WithAlpha(255);
        FillPart({place.x, place.y, place.x, place.y}, pixelEffect < 1 ? written : color,
                 pixelEffect < 1 ? MDrawMode::Copy : MDrawMode::Add);
    });
}

void MDrawerToMBitmap::Line(MPoint from, MPoint to, MColor color) {
    Paint("MDrawerToMBitmap::Line", [&] {
        const LineWalk walk(Shift(from), Shift(to));
        const auto [first, last] = walk.GetStepsIn(GetPaintable(bitmap->GetRect()));
        const MDrawMode mode = pixelEffect < 1 ? GetBlendMode() : MDrawMode::Add;
        for (int32_t step = first; step <= last; ++step) {
            const MPoint place = walk.GetPlace(step);
            FillPart({place.x, place.y, place.x, place.y}, color, mode);
        }
    });
}

void MDrawerToMBitmap::SetPixelF(MPointF point, MColor color) {
    Paint("MDrawerToMBitmap::SetPixelF", [&] {
        const MPointF place = Shift(point);
        const Outline square =
            MOutlines::GetRectangle(place.x - 0.5, place.y - 0.5, place.x + 0.5, place.y + 0.5);
        FillShape({&square, 1}, color, GetBlendMode());
    });
}

void MDrawerToMBitmap::LineF(MPointF from, MPointF to, MColor color) {
    Paint("MDrawerToMBitmap::LineF", [&] {
        const Outline line = MOutlines::GetLine(Shift(from), Shift(to));
        FillShape({&line, 1}, color, GetBlendMode());
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
        const MGradient gradient(from, to, direction, area);
        std::vector<MColor> colors;
        if (gradient.IsHorizontal()) colors = GetColumnColors(gradient, area, visible);
        const MPixelRows& operations = MGetPixelRows(mode);
        for (int32_t y = visible.top; y <= visible.bottom; ++y) {
            MColor* row = pixels + int64_t{bitmap->GetWidth()} * y + visible.left;
            if (gradient.IsHorizontal())
                operations.blit(row, colors.data(), visible.GetWidth(), 255);
            else
                operations.fill(row, visible.GetWidth(), gradient.GetColor(y - area.top));
        }
    });
}

void MDrawerToMBitmap::RoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::RoundRectangle",
          [&] { FillShape(MOutlines::GetRoundFrame(Shift(rect), radius, 1), color, mode); });
}

void MDrawerToMBitmap::FillRoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillRoundRectangle", [&] {
        const Outline outline = MOutlines::GetRoundRectangle(Shift(rect), radius, 0);
        FillShape({&outline, 1}, color, mode);
    });
}

void MDrawerToMBitmap::Circle(MPointF center, double radius, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::Circle",
          [&] { FillShape(MOutlines::GetRing(Shift(center), radius, 1), color, mode); });
}

void MDrawerToMBitmap::FillCircle(MPointF center, double radius, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillCircle", [&] {
        const Outline outline = MOutlines::GetCircle(Shift(center), radius);
        FillShape({&outline, 1}, color, mode);
    });
}

void MDrawerToMBitmap::FillTriangle(MPointF p1, MPointF p2, MPointF p3, MColor color, MDrawMode mode) {
    Paint("MDrawerToMBitmap::FillTriangle", [&] {
        const Outline outline = {Shift(p1), Shift(p2), Shift(p3)};
        FillShape({&outline, 1}, color, mode);
    });
}
