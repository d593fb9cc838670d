#include "tests/ui/drawing/DrawerFixture.h"

namespace {

MRect GetPart(MTestRandom& random) {
    return MRect::FromSize(random.Get(-5, 20), random.Get(-5, 15), random.Get(0, 25), random.Get(0, 20));
}

MDrawer::ValueList GetValues(MTestRandom& random) {
    MDrawer::ValueList values;
    for (int32_t i = random.Get(0, 70); i > 0; --i) values.Add(random.GetDouble(-10, 60));
    return values;
}

MDrawer::PointList GetPoints(MTestRandom& random) {
    MDrawer::PointList points;
    for (int32_t i = random.Get(0, 8); i > 0; --i) points.Add(random.GetPointF());
    return points;
}

std::vector<MOutlines::Outline> GetOutlines(MTestRandom& r) {
    if (r.Get(0, 1)) return MOutlines::GetRoundFrame(r.GetRect(), r.GetDouble(0, 15), r.GetDouble(0, 9));
    return MOutlines::GetRing(r.GetPointF(), r.GetDouble(0, 30), r.GetDouble(0, 9));
}

MGradientDirection GetDirection(MTestRandom& random) {
    return static_cast<MGradientDirection>(random.Get(0, 7));
}

}  // namespace

void MPaintTestPrimitive(int32_t number, MDrawer& d, MTestRandom& r) {
    static const MBitmap picture = MMakeNoise(23, 17, 1);
    static const MAlphaMask mask = MMakeMask(19, 29, 2);
    const MDrawMode mode = r.GetMode();
    switch (number) {
    case 0: return d.PatBlt(r.GetRect(), picture, r.GetPoint(), r.GetByte(), mode);
    case 1: return d.BitBlt(GetPart(r), picture, r.GetPoint(), r.GetByte(), mode);
    case 2: return d.AlphaMask(GetPart(r), mask, r.GetPoint(), r.GetColor(), mode);
    case 3: return d.StretchBlt(r.GetRect(), picture, GetPart(r), r.GetByte(), mode);
    case 4: return d.BitBltWhole(picture, r.GetPoint(), r.GetByte(), mode);
    case 5: return d.StretchBltWhole(r.GetRect(), picture, r.GetByte(), mode);
    case 6: return d.StretchBltH(r.GetRect(), picture, GetPart(r), r.GetByte(), mode);
    case 7: return d.StretchBltV(r.GetRect(), picture, GetPart(r), r.GetByte(), mode);
    case 8: return d.SetPixel(r.GetPoint(), r.GetColor());
    case 9: return d.Line(r.GetPoint(), r.GetPoint(), r.GetColor());
    case 10: return d.SetPixelF(r.GetPointF(), r.GetColor());
    case 11: return d.LineF(r.GetPointF(), r.GetPointF(), r.GetColor());
    case 12: return d.Rectangle(r.GetRect(), r.GetColor(), mode);
    case 13: return d.FillRectangle(r.GetRect(), r.GetColor(), mode);
    case 14: return d.FillRectangleGradient(r.GetRect(), r.GetColor(), r.GetColor(), GetDirection(r), mode);
    case 15: return d.RoundRectangle(r.GetRect(), r.GetDouble(0, 15), r.GetColor(), mode);
    case 16: return d.FillRoundRectangle(r.GetRect(), r.GetDouble(0, 15), r.GetColor(), mode);
    case 17: return d.Circle(r.GetPointF(), r.GetDouble(0, 30), r.GetColor(), mode);
    case 18: return d.FillCircle(r.GetPointF(), r.GetDouble(0, 30), r.GetColor(), mode);
    case 19: return d.FillTriangle(r.GetPointF(), r.GetPointF(), r.GetPointF(), r.GetColor(), mode);
    case 20:
        return d.FillVerticalColumn(r.Get(-5, 70), r.GetDouble(-10, 60), r.GetDouble(-10, 60), r.GetColor());
    case 21:
        return d.FillHorizontalRow(r.Get(-5, 50), r.GetDouble(-10, 80), r.GetDouble(-10, 80), r.GetColor());
    case 22: return d.PaintPolyLine(GetPoints(r), r.GetColor());
    case 23: return d.PaintPolygon(GetPoints(r), r.GetColor());
    case 24: return d.PaintHorizontalPolyLine(r.Get(-20, 60), GetValues(r), r.GetColor());
    case 25: return d.PaintHorizontalGraph(r.Get(-20, 60), GetValues(r), r.GetDouble(-10, 60), r.GetColor());
    case 26: return d.PaintHorizontalGraph(r.Get(-20, 60), GetValues(r), GetValues(r), r.GetColor());
    case 27:
        return d.PaintCornered(r.GetRect(), picture, GetPart(r), {r.Get(0, 9), r.Get(0, 9)}, r.Get(0, 4),
                               r.Get(0, 4), r.GetByte(), mode);
    case 28: return d.PatBltPart(r.GetRect(), picture, GetPart(r), r.GetByte(), mode);
    case 29: return d.FillOutlines(GetOutlines(r), r.GetColor(), mode);
    default:
        return d.FillOutlinesGradient(GetOutlines(r), r.GetRect(), r.GetColor(), r.GetColor(),
                                      GetDirection(r), mode);
    }
}
