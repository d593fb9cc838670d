#include "ui/drawing/MDrawerToPixels.h"

#include <algorithm>

using MOutlines::Outline;

namespace {

/// The points of a curve from left to right.
Outline GetCurve(MPoint first, const MDrawer::ValueList& values, int32_t count) {
    Outline curve;
    for (int32_t i = 0; i < count; ++i) curve.push_back({double(first.x) + i, values[i] + first.y});
    return curve;
}

/// The lines between points, each as wide as a pixel; where they meet nothing is painted twice.
std::vector<Outline> GetLines(const Outline& points) {
    std::vector<Outline> lines;
    if (points.size() == 1) lines.push_back(MOutlines::GetLine(points[0], points[0]));
    for (size_t i = 1; i < points.size(); ++i) lines.push_back(MOutlines::GetLine(points[i - 1], points[i]));
    return lines;
}

}  // namespace

void MDrawerToPixels::FillVerticalColumn(int32_t x, double top, double bottom, MColor color) {
    Paint("FillVerticalColumn", [&] {
        const MPointF start = Shift(MPointF{double(x), std::min(top, bottom)});
        const Outline column =
            MOutlines::GetRectangle(start.x - 0.5, start.y, start.x + 0.5, start.y + std::abs(bottom - top));
        FillShape({&column, 1}, color, GetBlendMode());
    });
}

void MDrawerToPixels::FillHorizontalRow(int32_t y, double left, double right, MColor color) {
    Paint("FillHorizontalRow", [&] {
        const MPointF start = Shift(MPointF{std::min(left, right), double(y)});
        const Outline row =
            MOutlines::GetRectangle(start.x, start.y - 0.5, start.x + std::abs(right - left), start.y + 0.5);
        FillShape({&row, 1}, color, GetBlendMode());
    });
}

void MDrawerToPixels::PaintPolyLine(const PointList& points, MColor color) {
    Paint("PaintPolyLine", [&] {
        Outline shifted;
        for (const MPointF& point : points) shifted.push_back(Shift(point));
        FillShape(GetLines(shifted), color, GetBlendMode());
    });
}

void MDrawerToPixels::PaintPolygon(const PointList& points, MColor color) {
    Paint("PaintPolygon", [&] {
        Outline outline;
        for (const MPointF& point : points) outline.push_back(Shift(point));
        FillShape({&outline, 1}, color, GetBlendMode());
    });
}

void MDrawerToPixels::PaintHorizontalPolyLine(int32_t firstX, const ValueList& values, MColor color) {
    Paint("PaintHorizontalPolyLine", [&] {
        const Outline curve = GetCurve(Shift(MPoint{firstX, 0}), values, values.GetCount());
        FillShape(GetLines(curve), color, GetBlendMode());
    });
}

void MDrawerToPixels::PaintHorizontalGraph(int32_t firstX, const ValueList& values, double baseY,
                                           MColor color) {
    ValueList base;
    for (int32_t i = 0; i < values.GetCount(); ++i) base.Add(baseY);
    PaintHorizontalGraph(firstX, values, base, color);
}

void MDrawerToPixels::PaintHorizontalGraph(int32_t firstX, const ValueList& upper, const ValueList& lower,
                                           MColor color) {
    Paint("PaintHorizontalGraph", [&] {
        const int32_t count = std::min(upper.GetCount(), lower.GetCount());
        const MPoint first = Shift(MPoint{firstX, 0});
        Outline outline = GetCurve(first, upper, count);
        const Outline back = MOutlines::GetReversed(GetCurve(first, lower, count));
        outline.insert(outline.end(), back.begin(), back.end());
        FillShape({&outline, 1}, color, GetBlendMode());
    });
}
