#pragma once

#include "tests/ui/drawing/DrawerFixture.h"
#include "ui/image/MAlphaMask.h"

#include <optional>
#include <random>
#include <vector>

/// Arguments that are the same in each run and on each platform.
struct Random : std::mt19937 {
    using mersenne_twister_engine::mersenne_twister_engine;

    /// Both ends are included.
    int32_t Get(int32_t least, int32_t most) {
        return least + static_cast<int32_t>((*this)() % static_cast<uint32_t>(most - least + 1));
    }
    double GetDouble(int32_t least, int32_t most) { return Get(least * 1000, most * 1000) / 1000.0; }
    MColor GetColor() { return MColor::FromWord(static_cast<uint32_t>((*this)())); }
    MDrawMode GetMode() { return static_cast<MDrawMode>(Get(0, MColorOpCount - 1)); }
    MPoint GetPoint() { return {Get(-20, 80), Get(-20, 60)}; }
    MPointF GetPointF() { return {GetDouble(-20, 80), GetDouble(-20, 60)}; }
    MRect GetRect() {
        const MPoint first = GetPoint();
        return MRect::FromSize(first.x, first.y, Get(0, 60), Get(0, 40));
    }
};

inline MDrawer::ValueList GetValues(Random& random) {
    MDrawer::ValueList values;
    for (int32_t i = random.Get(0, 70); i > 0; --i) values.Add(random.GetDouble(-10, 60));
    return values;
}

inline MDrawer::PointList GetPoints(Random& random) {
    MDrawer::PointList points;
    for (int32_t i = random.Get(0, 8); i > 0; --i) points.Add(random.GetPointF());
    return points;
}

inline std::vector<MOutlines::Outline> GetOutlines(Random& r) {
    if (r.Get(0, 1)) return MOutlines::GetRoundFrame(r.GetRect(), r.GetDouble(0, 15), r.GetDouble(0, 9));
    return MOutlines::GetRing(r.GetPointF(), r.GetDouble(0, 30), r.GetDouble(0, 9));
}

/// All primitives but text, by a number. The seed decides about the arguments, and about the mode unless one is given.
constexpr int32_t PrimitiveCount = 31;
inline void PaintPrimitive(int32_t number, MDrawer& d, uint32_t seed, std::optional<MDrawMode> given = {}) {
    const MBitmap picture = MMakeNoise(23, 17, 1);
    MAlphaMask mask;
    picture.ToAlphaMask(mask);
    Random r(seed);
    const MDrawMode chosen = r.GetMode();
    const MDrawMode mode = given.value_or(chosen);
    const MRect rect = r.GetRect();
    const MRect part = MRect::FromSize(r.Get(-5, 20), r.Get(-5, 15), r.Get(0, 25), r.Get(0, 20));
    const MPoint point = r.GetPoint();
    const MPointF place = r.GetPointF();
    const MColor color = r.GetColor();
    const MColor to = r.GetColor();
    const auto direction = static_cast<MGradientDirection>(r.Get(0, 7));
    const uint8_t alpha = color.alpha;
    const double radius = r.GetDouble(0, 20);
    switch (number) {
    case 0: return d.PatBlt(rect, picture, point, alpha, mode);
    case 1: return d.BitBlt(part, picture, point, alpha, mode);
    case 2: return d.AlphaMask(part, mask, point, color, mode);
    case 3: return d.StretchBlt(rect, picture, part, alpha, mode);
    case 4: return d.BitBltWhole(picture, point, alpha, mode);
    case 5: return d.StretchBltWhole(rect, picture, alpha, mode);
    case 6: return d.StretchBltH(rect, picture, part, alpha, mode);
    case 7: return d.StretchBltV(rect, picture, part, alpha, mode);
    case 8: return d.SetPixel(point, color);
    case 9: return d.Line(point, r.GetPoint(), color);
    case 10: return d.SetPixelF(place, color);
    case 11: return d.LineF(place, r.GetPointF(), color);
    case 12: return d.Rectangle(rect, color, mode);
    case 13: return d.FillRectangle(rect, color, mode);
    case 14: return d.FillRectangleGradient(rect, color, to, direction, mode);
    case 15: return d.RoundRectangle(rect, radius, color, mode);
    case 16: return d.FillRoundRectangle(rect, radius, color, mode);
    case 17: return d.Circle(place, radius, color, mode);
    case 18: return d.FillCircle(place, radius, color, mode);
    case 19: return d.FillTriangle(place, r.GetPointF(), r.GetPointF(), color, mode);
    case 20: return d.FillVerticalColumn(point.x, place.y, radius, color);
    case 21: return d.FillHorizontalRow(point.y, place.x, radius, color);
    case 22: return d.PaintPolyLine(GetPoints(r), color);
    case 23: return d.PaintPolygon(GetPoints(r), color);
    case 24: return d.PaintHorizontalPolyLine(point.x, GetValues(r), color);
    case 25: return d.PaintHorizontalGraph(point.x, GetValues(r), place.y, color);
    case 26: return d.PaintHorizontalGraph(point.x, GetValues(r), GetValues(r), color);
    case 27: return d.PaintCornered(rect, picture, part, point, r.Get(0, 4), r.Get(0, 4), alpha, mode);
    case 28: return d.PatBltPart(rect, picture, part, alpha, mode);
    case 29: return d.FillOutlines(GetOutlines(r), color, mode);
    default: return d.FillOutlinesGradient(GetOutlines(r), rect, color, to, direction, mode);
    }
}
