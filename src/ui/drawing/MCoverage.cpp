#include "ui/drawing/MCoverage.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace {

/// What lies right of a line from x0 to x1 (x0 <= x1) in a band of height 1, left of `x`.
double GetAreaLeftOf(double x, double x0, double x1) {
    if (x <= x0) return 0;
    if (x >= x1) return x - (x0 + x1) / 2;
    return (x - x0) * (x - x0) / (2 * (x1 - x0));
}

/// Outlines may lead far away; what is beyond this counts as being there.
double Limit(double value) {
    constexpr double Far = 1 << 30;
    return std::clamp(value, -Far, Far);
}

}  // namespace

MCoverage::MCoverage(const MRect& area)
    : area(area),
      blocksPerRow(static_cast<size_t>(std::max(area.GetWidth(), 0)) / Block::Width + 1),
      blockNumbers(area.IsEmpty() ? 0 : blocksPerRow * static_cast<size_t>(area.GetHeight()), None) {
    // Most rows have a left and a right edge.
    blocks.reserve(area.IsEmpty() ? 0 : 2 * static_cast<size_t>(area.GetHeight()));
}

void MCoverage::AddOutline(std::span<const MPointF> points) {
    if (area.IsEmpty() || points.empty()) return;
    MPointF last = points.back();
    for (const MPointF& point : points) {
        // A point that is nowhere cannot be reached; the whole outline would fall apart.
        if (std::isnan(point.x) || std::isnan(point.y)) continue;
        if (!std::isnan(last.x) && !std::isnan(last.y)) AddLine(last, point);
        last = point;
    }
}

void MCoverage::AddLine(MPointF from, MPointF to) {
    // From here on a pixel begins at a whole number.
    const double sign = from.y < to.y ? 1 : -1;
    if (from.y > to.y) std::swap(from, to);
    const double x0 = Limit(from.x + 0.5);
    const double y0 = Limit(from.y + 0.5);
    const double x1 = Limit(to.x + 0.5);
    const double y1 = Limit(to.y + 0.5);
    if (!(y0 < y1)) return;

    const double slope = (x1 - x0) / (y1 - y0);
    const auto first = static_cast<int32_t>(std::max(std::floor(y0), double(area.top)));
    const auto end = static_cast<int32_t>(std::min(std::ceil(y1), double(area.bottom) + 1));
    for (int32_t row = first; row < end; ++row) {
        const double top = std::max(double(row), y0);
        const double bottom = std::min(double(row) + 1, y1);
        AddSpan(row, x0 + (top - y0) * slope, x0 + (bottom - y0) * slope, sign * (bottom - top));
    }
}

void MCoverage::AddSpan(int32_t row, double x0, double x1, double height) {
    if (x0 > x1) std::swap(x0, x1);
    // From the first pixel that the line touches to the one behind its end, beyond which the sum stays.
    const auto first = static_cast<int32_t>(std::max(std::floor(x0), double(area.left)));
    const auto last =
        static_cast<int32_t>(std::min(std::max(std::floor(x1) + 1, double(area.left)), double(area.right)));
    int32_t before = 0;
    for (int32_t x = first; x <= last; ++x) {
        const double share = GetAreaLeftOf(x + 1.0, x0, x1) - GetAreaLeftOf(x, x0, x1);
        const int32_t units = static_cast<int32_t>(std::floor(share * height * Unit + 0.5));
        if (units != before) AddStep(x - area.left, row - area.top, units - before);
        before = units;
    }
}

void MCoverage::AddStep(int32_t x, int32_t y, int32_t units) {
    int32_t& number = blockNumbers[GetIndex(x, y)];
    if (number == None) {
        number = static_cast<int32_t>(blocks.size());
        blocks.emplace_back();
    }
    Block& block = blocks[static_cast<size_t>(number)];
    block.steps[x % Block::Width] += units;
    block.marks |= uint32_t{1} << x % Block::Width;
}

int64_t MCoverage::GetStep(int32_t x, int32_t y) const {
    return blocks[static_cast<size_t>(blockNumbers[GetIndex(x, y)])].steps[x % Block::Width];
}

int32_t MCoverage::FindStep(int32_t x, int32_t y) const {
    for (; x < area.GetWidth(); x = (x / Block::Width + 1) * Block::Width) {
        const int32_t number = blockNumbers[GetIndex(x, y)];
        if (number == None) continue;
        const uint32_t marks = blocks[static_cast<size_t>(number)].marks >> x % Block::Width;
        if (marks != 0) return x + std::countr_zero(marks);
    }
    return area.GetWidth();
}

uint8_t MCoverage::ToShare(int64_t units) {
    return static_cast<uint8_t>((std::min<int64_t>(std::abs(units), Unit) * 255 + Unit / 2) >> UnitBits);
}
