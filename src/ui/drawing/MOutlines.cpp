#include "ui/drawing/MOutlines.h"

#include <algorithm>
#include <cmath>

namespace {

using MOutlines::Outline;

/// Adds a quarter of a circle from the direction (x, y), one of the four along the axes, clockwise.
void AddQuarter(Outline& outline, MPointF center, double radius, double x, double y) {
    const int32_t steps = static_cast<int32_t>(std::clamp(std::ceil(4 * std::sqrt(radius)), 2.0, 4096.0));
    for (int32_t i = 0; i <= steps; ++i) {
        // The rational form of the circle, which needs no trigonometry.
        const double t = static_cast<double>(i) / steps;
        const double along = (1 - t * t) / (1 + t * t);
        const double across = 2 * t / (1 + t * t);
        outline.push_back(
            {center.x + radius * (along * x - across * y), center.y + radius * (along * y + across * x)});
    }
}

}  // namespace

MOutlines::Outline MOutlines::GetRectangle(double left, double top, double right, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

MOutlines::Outline MOutlines::GetCircle(MPointF center, double radius) {
    Outline outline;
    if (!(radius > 0)) return outline;
    AddQuarter(outline, center, radius, 1, 0);
    AddQuarter(outline, center, radius, 0, 1);
    AddQuarter(outline, center, radius, -1, 0);
    AddQuarter(outline, center, radius, 0, -1);
    return outline;
}

MOutlines::Outline MOutlines::GetRoundRectangle(const MRect& rect, double radius, double inset) {
    const double left = rect.left - 0.5 + inset;
    const double top = rect.top - 0.5 + inset;
    const double right = rect.right + 0.5 - inset;
    const double bottom = rect.bottom + 0.5 - inset;
    if (!(left < right && top < bottom)) return {};
    radius = std::min({radius - inset, (right - left) / 2, (bottom - top) / 2});
    if (!(radius > 0)) return GetRectangle(left, top, right, bottom);

    Outline outline;
    AddQuarter(outline, {right - radius, bottom - radius}, radius, 1, 0);
    AddQuarter(outline, {left + radius, bottom - radius}, radius, 0, 1);
    AddQuarter(outline, {left + radius, top + radius}, radius, -1, 0);
    AddQuarter(outline, {right - radius, top + radius}, radius, 0, -1);
    return outline;
}

std::vector<MOutlines::Outline> MOutlines::GetRoundFrame(const MRect& rect, double radius, double lineWidth) {
    return {GetRoundRectangle(rect, radius, 0), GetReversed(GetRoundRectangle(rect, radius, lineWidth))};
}

std::vector<MOutlines::Outline> MOutlines::GetRing(MPointF center, double radius, double lineWidth) {
    return {GetCircle(center, radius), GetReversed(GetCircle(center, radius - lineWidth))};
}

MOutlines::Outline MOutlines::GetLine(MPointF from, MPointF to) {
    const double length = std::sqrt((to.x - from.x) * (to.x - from.x) + (to.y - from.y) * (to.y - from.y));
    // A point has no direction; it becomes a square.
    const double x = length > 0 ? (to.x - from.x) / length / 2 : 0.5;
    const double y = length > 0 ? (to.y - from.y) / length / 2 : 0;
    return {{from.x - x + y, from.y - y - x},
            {to.x + x + y, to.y + y - x},
            {to.x + x - y, to.y + y + x},
            {from.x - x - y, from.y - y + x}};
}

MOutlines::Outline MOutlines::GetReversed(Outline outline) {
    std::ranges::reverse(outline);
    return outline;
}
