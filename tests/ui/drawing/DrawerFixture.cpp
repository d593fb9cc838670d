#include "tests/ui/drawing/DrawerFixture.h"

namespace {

const MBitmap& GetPicture() {
    static const MBitmap picture = MMakeNoise(23, 17, 1);
    return picture;
}

const MAlphaMask& GetMask() {
    static const MAlphaMask mask = MMakeMask(19, 29, 2);
    return mask;
}

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

MGradientDirection GetDirection(MTestRandom& random) {
    return static_cast<MGradientDirection>(random.Get(0, 7));
}

using R = MTestRandom;
using D = MDrawer;

const std::vector<MTestPrimitive> Primitives = {
    {"PatBlt",
     [](D& d, R& r) { d.PatBlt(r.GetRect(), GetPicture(), r.GetPoint(), r.GetByte(), r.GetMode()); }},
    {"BitBlt",
     [](D& d, R& r) { d.BitBlt(GetPart(r), GetPicture(), r.GetPoint(), r.GetByte(), r.GetMode()); }},
    {"AlphaMask",
     [](D& d, R& r) { d.AlphaMask(GetPart(r), GetMask(), r.GetPoint(), r.GetColor(), r.GetMode()); }},
    {"StretchBlt",
     [](D& d, R& r) { d.StretchBlt(r.GetRect(), GetPicture(), GetPart(r), r.GetByte(), r.GetMode()); }},
    {"BitBltWhole", [](D& d, R& r) { d.BitBltWhole(GetPicture(), r.GetPoint(), r.GetByte(), r.GetMode()); }},
    {"StretchBltWhole",
     [](D& d, R& r) { d.StretchBltWhole(r.GetRect(), GetPicture(), r.GetByte(), r.GetMode()); }},
    {"StretchBltH",
     [](D& d, R& r) { d.StretchBltH(r.GetRect(), GetPicture(), GetPart(r), r.GetByte(), r.GetMode()); }},
    {"StretchBltV",
     [](D& d, R& r) { d.StretchBltV(r.GetRect(), GetPicture(), GetPart(r), r.GetByte(), r.GetMode()); }},
    {"SetPixel", [](D& d, R& r) { d.SetPixel(r.GetPoint(), r.GetColor()); }},
    {"Line", [](D& d, R& r) { d.Line(r.GetPoint(), r.GetPoint(), r.GetColor()); }},
    {"SetPixelF", [](D& d, R& r) { d.SetPixelF(r.GetPointF(), r.GetColor()); }},
    {"LineF", [](D& d, R& r) { d.LineF(r.GetPointF(), r.GetPointF(), r.GetColor()); }},
    {"Rectangle", [](D& d, R& r) { d.Rectangle(r.GetRect(), r.GetColor(), r.GetMode()); }},
    {"FillRectangle", [](D& d, R& r) { d.FillRectangle(r.GetRect(), r.GetColor(), r.GetMode()); }},
    {"FillRectangleGradient",
     [](D& d, R& r) {
         d.FillRectangleGradient(r.GetRect(), r.GetColor(), r.GetColor(), GetDirection(r), r.GetMode());
     }},
    {"RoundRectangle",
     [](D& d, R& r) { d.RoundRectangle(r.GetRect(), r.GetDouble(0, 15), r.GetColor(), r.GetMode()); }},
    {"FillRoundRectangle",
     [](D& d, R& r) { d.FillRoundRectangle(r.GetRect(), r.GetDouble(0, 15), r.GetColor(), r.GetMode()); }},
    {"Circle", [](D& d, R& r) { d.Circle(r.GetPointF(), r.GetDouble(0, 30), r.GetColor(), r.GetMode()); }},
    {"FillCircle",
     [](D& d, R& r) { d.FillCircle(r.GetPointF(), r.GetDouble(0, 30), r.GetColor(), r.GetMode()); }},
    {"FillTriangle",
     [](D& d, R& r) {
         d.FillTriangle(r.GetPointF(), r.GetPointF(), r.GetPointF(), r.GetColor(), r.GetMode());
     }},
    {"FillVerticalColumn",
     [](D& d, R& r) {
         d.FillVerticalColumn(r.Get(-5, 70), r.GetDouble(-10, 60), r.GetDouble(-10, 60), r.GetColor());
     }},
    {"FillHorizontalRow",
     [](D& d, R& r) {
         d.FillHorizontalRow(r.Get(-5, 50), r.GetDouble(-10, 80), r.GetDouble(-10, 80), r.GetColor());
     }},
    {"PaintPolyLine", [](D& d, R& r) { d.PaintPolyLine(GetPoints(r), r.GetColor()); }},
    {"PaintPolygon", [](D& d, R& r) { d.PaintPolygon(GetPoints(r), r.GetColor()); }},
    {"PaintHorizontalPolyLine",
     [](D& d, R& r) { d.PaintHorizontalPolyLine(r.Get(-20, 60), GetValues(r), r.GetColor()); }},
    {"PaintHorizontalGraph to a base",
     [](D& d, R& r) {
         d.PaintHorizontalGraph(r.Get(-20, 60), GetValues(r), r.GetDouble(-10, 60), r.GetColor());
     }},
    {"PaintHorizontalGraph between curves",
     [](D& d, R& r) { d.PaintHorizontalGraph(r.Get(-20, 60), GetValues(r), GetValues(r), r.GetColor()); }},
    {"PaintCornered",
     [](D& d, R& r) {
         d.PaintCornered(r.GetRect(), GetPicture(), GetPart(r), {r.Get(0, 9), r.Get(0, 9)}, r.Get(0, 4),
                         r.Get(0, 4), r.GetByte(), r.GetMode());
     }},
};

}  // namespace

const std::vector<MTestPrimitive>& MGetTestPrimitives() {
    return Primitives;
}
