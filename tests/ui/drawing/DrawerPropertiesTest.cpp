// What holds for every primitive, whatever its arguments.

#include "tests/ui/drawing/DrawerFixture.h"
#include "ui/drawing/MClipScope.h"
#include "ui/image/MAlphaMask.h"

#include <random>

namespace {

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

MDrawer::ValueList GetValues(Random& random) {
    MDrawer::ValueList values;
    for (int32_t i = random.Get(0, 70); i > 0; --i) values.Add(random.GetDouble(-10, 60));
    return values;
}

MDrawer::PointList GetPoints(Random& random) {
    MDrawer::PointList points;
    for (int32_t i = random.Get(0, 8); i > 0; --i) points.Add(random.GetPointF());
    return points;
}

std::vector<MOutlines::Outline> GetOutlines(Random& r) {
    if (r.Get(0, 1)) return MOutlines::GetRoundFrame(r.GetRect(), r.GetDouble(0, 15), r.GetDouble(0, 9));
    return MOutlines::GetRing(r.GetPointF(), r.GetDouble(0, 30), r.GetDouble(0, 9));
}

/// All primitives but text, by a number. The seed decides about the arguments.
constexpr int32_t PrimitiveCount = 31;
void PaintPrimitive(int32_t number, MDrawer& d, uint32_t seed) {
    const MBitmap picture = MMakeNoise(23, 17, 1);
    MAlphaMask mask;
    picture.ToAlphaMask(mask);
    Random r(seed);
    const MDrawMode mode = r.GetMode();
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

constexpr int32_t Width = 61;
constexpr int32_t Height = 43;
const MRect All = MRect::FromSize(0, 0, Width, Height);

/// The noise that everything is painted on.
MBitmap MakeGround() {
    return MMakeNoise(Width, Height, 3);
}

/// Paints a primitive within each of some clips; the seed decides about its arguments.
MBitmap Paint(int32_t primitive, uint32_t seed, std::initializer_list<MRect> clips) {
    MBitmap bitmap = MakeGround();
    for (const MRect& clip : clips) {
        MDrawerToMBitmap drawer(bitmap);
        drawer.SetClip(clip);
        PaintPrimitive(primitive, drawer, seed);
    }
    return bitmap;
}

}  // namespace

TEST(DrawerPropertiesTest, HoldForAllPrimitives) {
    const MBitmap ground = MakeGround();
    for (int32_t i = 0; i < PrimitiveCount * PRIMITIVE_ROUNDS && !HasFailure(); ++i) {
        const int32_t primitive = i / PRIMITIVE_ROUNDS;
        const auto seed = static_cast<uint32_t>(i % PRIMITIVE_ROUNDS);
        SCOPED_TRACE(testing::Message() << "primitive " << primitive << ", seed " << seed);
        Random where(seed + 1000);

        // Nothing outside of the clip changes.
        const MRect clip = where.GetRect();
        EXPECT_EQ(MFindDifference(Paint(primitive, seed, {clip}), ground, clip, false), "");

        // Painting in pieces equals painting once.
        const int32_t x = where.Get(-3, Width + 3);
        const int32_t y = where.Get(-3, Height + 3);
        const MBitmap pieces =
            Paint(primitive, seed,
                  {{-99, -99, x, y}, {x + 1, -99, 999, y}, {-99, y + 1, x, 999}, {x + 1, y + 1, 999, 999}});
        EXPECT_EQ(MFindDifference(Paint(primitive, seed, {All}), pieces), "");

        // What a chain of drawers hands on arrives where their origins lie together, within the clip of the chain.
        const MPoint first = where.GetPoint();
        const MPoint second = where.GetPoint();
        MBitmap chained = ground;
        MDrawerToMBitmap target(chained);
        MDrawer middle(&target);
        middle.SetTranslation(first.x, first.y);
        MDrawer inner(&middle);
        inner.SetTranslation(second.x, second.y);
        EXPECT_EQ(inner.GetClip(), All.Shifted(MPoint() - first - second));
        inner.SetClip(clip);
        PaintPrimitive(primitive, inner, seed);
        MBitmap direct = ground;
        MDrawerToMBitmap shifted(direct);
        shifted.SetTranslation(first.x + second.x, first.y + second.y);
        shifted.SetClip(clip);
        EXPECT_EQ(shifted.GetClip(), clip);
        PaintPrimitive(primitive, shifted, seed);
        EXPECT_EQ(MFindDifference(chained, direct), "");
        EXPECT_EQ(MFindDifference(direct, ground, clip.Shifted(first + second), false), "");

        // What is opaque stays so in all modes but one.
        if (Random(seed).GetMode() == MDrawMode::Copy) continue;
        MBitmap opaque;
        opaque.CreateOpaque(Width, Height);
        MDrawerToMBitmap onOpaque(opaque);
        PaintPrimitive(primitive, onOpaque, seed);
        EXPECT_TRUE(std::all_of(opaque.GetPixels(), opaque.GetPixels() + Width * Height,
                                [](MColor pixel) { return pixel.alpha == 255; }));
    }
}

TEST(DrawerPropertiesTest, WithoutABitmapNothingHappens) {
    MBitmap empty, paletted;
    paletted.CreatePaletted(8, 8);
    MDrawerToMBitmap nowhere, onEmpty(empty), onPaletted(paletted);
    MDrawer withoutTarget;
    for (MDrawer* drawer : std::initializer_list<MDrawer*>{&nowhere, &onEmpty, &onPaletted, &withoutTarget})
        for (int32_t primitive = 0; primitive < PrimitiveCount; ++primitive)
            PaintPrimitive(primitive, *drawer, 4);
    EXPECT_EQ(paletted.GetIndices()[3 * 8 + 3], 0);
}

TEST(DrawerPropertiesTest, AClipScopeNarrowsAndBringsBack) {
    MBitmap bitmap = MakeGround();
    MDrawerToMBitmap drawer(bitmap);
    {
        MClipScope outer(drawer);
        EXPECT_FALSE(outer.Intersect({10, 10, 20, 20}));
        MClipScope inner(drawer);
        EXPECT_FALSE(inner.Intersect({15, 0, 100, 100}));
        EXPECT_EQ(drawer.GetClip(), (MRect{15, 10, 20, 20}));
        EXPECT_TRUE(inner.Intersect({0, 0, 14, 100}));
    }
    EXPECT_EQ(drawer.GetClip(), All);
}

TEST(DrawerPropertiesTest, ASizeOfZeroIsThatOfTheTarget) {
    MBitmap bitmap = MakeGround();
    MDrawerToMBitmap target(bitmap);
    MDrawer chained(&target);
    for (MDrawer* drawer : {&chained, static_cast<MDrawer*>(&target)})
        for (const auto& [own, answered] : {std::pair{MPoint{30, 0}, MPoint{30, Height}},
                                            {MPoint{0, 20}, MPoint{Width, 20}},
                                            {MPoint{0, 0}, MPoint{Width, Height}}}) {
            drawer->SetSize(own.x, own.y);
            EXPECT_EQ((MPoint{drawer->GetWidth(), drawer->GetHeight()}), answered);
        }
}

TEST(DrawerPropertiesTest, RectanglesUniteAroundWhatIsNotEmpty) {
    const MRect rect{2, 3, 4, 5};
    EXPECT_EQ(rect.United({-1, 4, 9, 4}), (MRect{-1, 3, 9, 5}));
    for (const MRect empty : {MRect{-9, -9, -10, 99}, MRect()})
        EXPECT_TRUE(rect.United(empty) == rect && empty.United(rect) == rect);
}
