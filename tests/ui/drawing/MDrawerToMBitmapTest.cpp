#include "ui/drawing/MDrawerToMBitmap.h"

#include "tests/support/MTestText.h"
#include "tests/ui/drawing/DrawerFixture.h"
#include "ui/drawing/MBitmapFill.h"
#include "ui/text/MFont.h"
#include "ui/text/MTextLayout.h"

#include <cmath>
#include <functional>
#include <tuple>

namespace {

constexpr double Pi = 3.14159265358979;
constexpr MDrawMode Blend = MDrawMode::Overlay;

/// What is covered, in pixels.
double SumOf(const MBitmap& bitmap) {
    double sum = 0;
    for (int32_t y = 0; y < bitmap.GetHeight(); ++y)
        for (int32_t x = 0; x < bitmap.GetWidth(); ++x) sum += bitmap.GetPixel(x, y).alpha / 255.0;
    return sum;
}

/// Notes with what alpha text is painted where, as "255 at 3".
class TextRecorder : public MDrawer {
public:
    void AlignedTextOut(const MRect& rect, MFont&, const MString&, MColor color, MTextAlignment) override {
        notes += std::to_string(color.alpha) + " at " + std::to_string(rect.left) + "; ";
    }

    std::string notes;
};

}  // namespace

class MDrawerToMBitmapTest : public testing::Test {
protected:
    ~MDrawerToMBitmapTest() noexcept override = default;

    /// Whether the bitmap has in a rectangle the pixels of a part that `map` gives for a place and the part's size, and
    /// none outside.
    template <class Function>
    void ExpectPicture(const MRect& rect, const MBitmap& source, const MRect& part, Function map) {
        MBitmap expected(bitmap.GetWidth(), bitmap.GetHeight());
        const MRect visible = rect.Intersected(bitmap.GetRect());
        for (int32_t y = visible.top; y <= visible.bottom; ++y)
            for (int32_t x = visible.left; x <= visible.right; ++x) {
                const MPoint place = map({x - rect.left, y - rect.top}, {part.GetWidth(), part.GetHeight()});
                expected.EditRow(y)[x] = source.GetPixel(part.left + place.x, part.top + place.y);
            }
        EXPECT_EQ(MFindDifference(bitmap, expected), "") << part.left << ", " << rect.left;
    }

    void PaintFrame(const MRect& rect, MPoint corner, MBitmapFill edges, MBitmapFill center) {
        bitmap.Create(64, 48);
        drawer.PaintCornered(rect, picture, picture.GetRect(), corner, static_cast<int32_t>(edges),
                             static_cast<int32_t>(center), Opaque, MDrawMode::Copy);
        EXPECT_EQ(MFindDifference(bitmap, MBitmap(64, 48), rect, false), "");
    }
    /// Whether a part of the bitmap at `place` is that of the picture at `source`.
    void ExpectPart(MPoint place, MPoint source, MPoint size) {
        for (int32_t y = 0; y < size.y; ++y)
            for (int32_t x = 0; x < size.x; ++x)
                ASSERT_EQ(bitmap.GetPixel(place.x + x, place.y + y),
                          picture.GetPixel(source.x + x, source.y + y));
    }

    MBitmap bitmap{64, 48};
    MDrawerToMBitmap drawer{bitmap};
    const MBitmap picture = MMakeNoise(23, 17, 5);
};

// Narrow tiles are put together before they are painted, wide ones are not.
TEST_F(MDrawerToMBitmapTest, TilesInTheRightPhaseUpToTheEdge) {
    const MBitmap source = MMakeNoise(80, 17, 8);
    const MRect all = source.GetRect();
    const MRect rect{2, 3, 181, 40};
    const auto wrap = [](int64_t place, int64_t size) { return (place % size + size) % size; };
    const std::pair<MRect, MPoint> cases[] = {
        {all, {5, 3}},          {all, {-1, -40}},         {all, {1000, -100000}},
        {{3, 2, 3, 2}, {0, 0}}, {{70, 5, 75, 8}, {0, 0}}, {{1, 1, 64, 9}, {0, 0}}};
    for (const auto& [part, offset] : cases) {
        bitmap.Create(190, 48);
        drawer.SetBitmap(&bitmap);
        if (part == all) drawer.PatBlt(rect, source, offset, Opaque, MDrawMode::Copy);
        if (part != all) drawer.PatBltPart(rect, source, part, Opaque, MDrawMode::Copy);
        ExpectPicture(rect, source, part, [&, start = offset](MPoint place, MPoint size) {
            return MPoint{static_cast<int32_t>(wrap(place.x + int64_t{start.x}, size.x)),
                          static_cast<int32_t>(wrap(place.y + int64_t{start.y}, size.y))};
        });
    }
    // Only what is seen of a huge one takes time.
    for (int32_t i = 0; i < 1000; ++i)
        drawer.PatBltPart({0, 0, 2000000, 2000000}, source, {3, 2, 3, 2}, Opaque, MDrawMode::Copy);
}

TEST_F(MDrawerToMBitmapTest, StretchesToTheNearestPixel) {
    const MRect part{3, 2, 20, 12};
    for (const MRect rect : {MRect{0, 0, 63, 47}, MRect{5, 5, 10, 8}, MRect{-30, -20, 89, 70}}) {
        bitmap.Create(64, 48);
        drawer.StretchBlt(rect, picture, part, Opaque, MDrawMode::Copy);
        // What lies below the centre of a pixel.
        ExpectPicture(rect, picture, part, [&](MPoint place, MPoint size) {
            return MPoint{(2 * place.x + 1) * size.x / (2 * rect.GetWidth()),
                          (2 * place.y + 1) * size.y / (2 * rect.GetHeight())};
        });
    }
}

TEST_F(MDrawerToMBitmapTest, PaintsABitmapOntoItselfAsItWasAndPalettedOnesInTheirColors) {
    const MRect rect{5, 4, 39, 29};
    const MPoint offset{37, 27};
    const std::function<void(MDrawer&, const MBitmap&)> paints[] = {
        [&](MDrawer& d, const MBitmap& b) { d.BitBlt(rect, b, MPoint(), Opaque, MDrawMode::Copy); },
        [&](MDrawer& d, const MBitmap& b) { d.BitBltWhole(b, offset, Opaque, MDrawMode::Copy); },
        [&](MDrawer& d, const MBitmap& b) { d.PatBlt(rect, b, offset, Opaque, MDrawMode::Copy); },
        [&](MDrawer& d, const MBitmap& b) { d.StretchBltWhole(rect, b, Opaque, MDrawMode::Copy); },
    };
    for (const auto& paint : paints) {
        const MBitmap before = MMakeNoise(40, 30, 6);
        MBitmap ordinary = before, expected = before, surface;
        surface.CreateSurface(40, 30);
        MDrawerToMBitmap onSurface(surface), onOrdinary(ordinary), onExpected(expected);
        onSurface.BitBltWhole(before, {0, 0}, Opaque, MDrawMode::Copy);
        paint(onSurface, surface);
        paint(onOrdinary, ordinary);
        paint(onExpected, before);
        EXPECT_EQ(MFindDifference(ordinary, expected), "");
        EXPECT_EQ(MFindDifference(surface, expected), "");
    }
    MBitmap paletted;
    paletted.CreatePaletted(3, 2);
    paletted.EditPalette()[7] = MColor::FromRGB(10, 20, 30, 40);
    paletted.EditIndices()[4] = 7;
    drawer.BitBltWhole(paletted, {0, 0}, Opaque, MDrawMode::Copy);
    EXPECT_EQ(bitmap.GetPixel(1, 1), MColor::FromRGB(10, 20, 30, 40));
    EXPECT_EQ(bitmap.GetPixel(0, 0), MColor());
}

TEST_F(MDrawerToMBitmapTest, GradientsReachTheirColorsAtTheEdgesAndFillShapesAsRectangles) {
    const MColor from = MColor::FromRGB(0, 100, 200, 10);
    const MColor to = MColor::FromRGB(255, 50, 0, 250);
    const std::vector<MOutlines::Outline> frame = MOutlines::GetRoundFrame({5, 5, 44, 34}, 0, 4);
    for (int32_t i = 0; i < 8; ++i) {
        const auto direction = static_cast<MGradientDirection>(i);
        drawer.FillRectangleGradient({0, 0, 63, 47}, from, to, direction, MDrawMode::Copy);
        const bool isInverted = i % 2 != 0;
        const bool isDouble = i / 2 % 2 != 0;
        const MPoint middle = i >= 4 ? MPoint{31, 5} : MPoint{5, 23};
        EXPECT_EQ(bitmap.GetPixel(0, 0), isInverted ? to : from) << i;
        EXPECT_EQ(bitmap.GetPixel(63, 47), isInverted == isDouble ? to : from) << i;
        EXPECT_EQ(bitmap.GetPixel(middle.x, middle.y) == (isInverted ? from : to), isDouble) << i;

        MBitmap shape(64, 48);
        MDrawerToMBitmap onShape(shape);
        onShape.FillOutlinesGradient(frame, {0, 0, 63, 47}, from, to, direction, MDrawMode::Copy);
        EXPECT_EQ(MFindDifference(shape, MBitmap(64, 48), {9, 9, 40, 30}, true), "");
        EXPECT_EQ(MFindDifference(shape, MBitmap(64, 48), {5, 5, 44, 34}, false), "");
        drawer.FillRectangle({9, 9, 40, 30}, MColor::FromWord(0), MDrawMode::Copy);
        EXPECT_EQ(MFindDifference(shape, bitmap, {5, 5, 44, 34}, true), "") << i;
    }
}

TEST_F(MDrawerToMBitmapTest, ShapesCoverTheirArea) {
    const MRect box{5, 5, 44, 34};
    const MRect odd{5, 5, 39, 35};
    const MPointF center{30.3, 24.7};
    const MPointF points[] = {{10, 10}, {30, 10}, {25, 40}, {30, 19}};
    const auto wideRing = MOutlines::GetRing(center, 20, 10);
    const auto wideFrame = MOutlines::GetRoundFrame(box, 6, 3);
    constexpr auto Horizontal = MGradientDirection::Horizontal;
    const double cut = 4 - Pi;  // of the four corners of a radius of 1
    MDrawer::ValueList values;
    for (const double value : {20.0, 21.0, 22.0, 21.0, 20.0}) values.Add(value);
    const std::tuple<const char*, double, std::function<void()>> shapes[] = {
        {"circle", Pi * 100, [&] { drawer.FillCircle(center, 10, White, Blend); }},
        {"ring", Pi * 39, [&] { drawer.Circle(center, 20, White, Blend); }},
        {"wide ring", Pi * 300, [&] { drawer.FillOutlines(wideRing, White, Blend); }},
        {"gradient", Pi * 300,
         [&] { drawer.FillOutlinesGradient(wideRing, box, White, White, Horizontal, Blend); }},
        {"small circle", Pi * 0.16, [&] { drawer.FillCircle(center, 0.4, White, Blend); }},
        {"round box", 1200 - 36 * cut, [&] { drawer.FillRoundRectangle(box, 6, White, Blend); }},
        {"round frame", 136 - 11 * cut, [&] { drawer.RoundRectangle(box, 6, White, Blend); }},
        {"wide frame", 384 - 27 * cut, [&] { drawer.FillOutlines(wideFrame, White, Blend); }},
        {"half", 35 * 31 - 240.25 * cut, [&] { drawer.FillRoundRectangle(odd, 99, White, Blend); }},
        {"rectangle", 2 * 40 + 2 * 28, [&] { drawer.Rectangle(box, White, Blend); }},
        {"triangle", 300, [&] { drawer.FillTriangle(points[0], points[1], points[2], White, Blend); }},
        {"line", std::sqrt(20.0 * 20 + 9 * 9) + 1, [&] { drawer.LineF(points[0], points[3], White); }},
        {"point", 1, [&] { drawer.SetPixelF(center, White); }},
        {"column", 12.5, [&] { drawer.FillVerticalColumn(7, 3.25, 15.75, White); }},
        {"column upwards", 12.5, [&] { drawer.FillVerticalColumn(7, 15.75, 3.25, White); }},
        {"graph", 0.5 * 4 * 2, [&] { drawer.PaintHorizontalGraph(10, values, 20, White); }},
    };
    for (const auto& [name, area, paint] : shapes) {
        bitmap.Create(64, 48);
        paint();
        EXPECT_NEAR(SumOf(bitmap), area, std::max(0.06, area * 0.003)) << name;
    }
}

TEST_F(MDrawerToMBitmapTest, LinesMeetTheirEndsAndAreTheSameInAllDirections) {
    for (const MPoint way :
         {MPoint{0, 0}, MPoint{-20, 0}, MPoint{20, -7}, MPoint{-20, 20}, MPoint{-7, -20}}) {
        bitmap.Create(64, 48);
        drawer.Line({30, 24}, MPoint{30, 24} + way, White);
        EXPECT_EQ(bitmap.GetPixel(30, 24), White);
        EXPECT_EQ(bitmap.GetPixel(30 + way.x, 24 + way.y), White);
        EXPECT_EQ(SumOf(bitmap), std::max(std::abs(way.x), std::abs(way.y)) + 1);
    }
}

TEST_F(MDrawerToMBitmapTest, WhatIsCoveredTwiceIsPaintedOnceAndWhatIsNotStays) {
    MDrawer::PointList points;
    for (const MPointF point : {MPointF{5, 20}, MPointF{30, 20}, MPointF{5, 20}}) points.Add(point);
    drawer.PaintPolyLine(points, White.WithAlpha(128));
    EXPECT_EQ(bitmap.GetPixel(20, 20).alpha, 128);
    const std::vector often(4096, MOutlines::GetRectangle(5, 30, 10, 40));
    drawer.FillOutlines(often, White.WithAlpha(128), MDrawMode::Copy);
    EXPECT_EQ(bitmap.GetPixel(7, 35).alpha, 128);

    drawer.FillRectangle({0, 0, 63, 47}, White, MDrawMode::Copy);
    drawer.FillCircle({30, 24}, 10, MColor{1, 2, 3, 4}, MDrawMode::Copy);
    EXPECT_EQ(bitmap.GetPixel(21, 15), White);
    EXPECT_EQ(bitmap.GetPixel(30, 24), (MColor{1, 2, 3, 4}));

    // Two triangles share an edge; what one leaves of a pixel the other one takes.
    drawer.FillRectangle({0, 0, 63, 47}, MColor(), MDrawMode::Copy);
    const MPointF corners[] = {{4.5, 4.5}, {50.5, 4.5}, {4.5, 40.5}, {50.5, 40.5}};
    drawer.FillTriangle(corners[0], corners[1], corners[2], White, MDrawMode::Add);
    drawer.FillTriangle(corners[1], corners[3], corners[2], White, MDrawMode::Add);
    for (int32_t y = 5; y <= 40; ++y)
        for (int32_t x = 5; x <= 50; ++x) ASSERT_NEAR(bitmap.GetPixel(x, y).blue, 254, 1) << x << ", " << y;
}

// Text over a blended ground once came out as boxes, since a mask gave its colour to what it did not cover.
TEST_F(MDrawerToMBitmapTest, GlyphsLeaveWhatTheyDoNotCover) {
    MAlphaMask mask(3, 1);
    mask.EditBytes()[1] = 128;
    mask.EditBytes()[2] = 255;
    MBitmap shown;
    shown.CreateOpaque(9, 1);
    MDrawerToMBitmap onShown(shown);
    const MColor ground = MColor::FromRGB(10, 20, 30);
    for (MDrawerToMBitmap* target : {&onShown, &drawer}) {
        target->FillRectangle({0, 0, 8, 0}, ground, MDrawMode::Alphablend);
        target->PaintGlyph({&mask, {4, 0}}, White);
    }
    EXPECT_EQ(shown.GetPixel(4, 0), shown.GetPixel(3, 0));
    EXPECT_EQ(shown.GetPixel(5, 0), MColor::FromRGB(131, 136, 141));
    EXPECT_EQ(shown.GetPixel(6, 0), MColor::FromRGB(254, 254, 254));
    EXPECT_EQ(bitmap.GetPixel(4, 0), bitmap.GetPixel(3, 0));
    EXPECT_EQ(bitmap.GetPixel(5, 0), White.WithAlpha(128));
}

TEST_F(MDrawerToMBitmapTest, APixelIsWrittenAsItIsUnlessAnEffectAdds) {
    const MColor half{100, 200, 0, 128};
    for (int32_t i = 0; i < 2; ++i) drawer.SetPixel({0, 0}, half);
    EXPECT_EQ(bitmap.GetPixel(0, 0), half);
    drawer.pixelEffect = 1;
    drawer.SetPixel({0, 0}, half);
    EXPECT_EQ(bitmap.GetPixel(0, 0), (MColor{150, 255, 0, 128}));
    drawer.SetPixelOnce({0, 0}, half);
    EXPECT_EQ(bitmap.GetPixel(0, 0), half);
    drawer.ResetPixelEffect();
    drawer.hasAlphaChannel = false;
    drawer.SetPixel({0, 0}, half);
    EXPECT_EQ(bitmap.GetPixel(0, 0), half.WithAlpha(255));
}

TEST_F(MDrawerToMBitmapTest, ShadowsOfTextFromAnAlphaOfElevenOn) {
    MFont font;
    const std::tuple<uint8_t, uint8_t, const char*> cases[] = {
        {255, 11, "11 at 4; 255 at 3; "}, {255, 10, "255 at 3; "}, {0, 255, ""},
        {128, 54, "27 at 4; 128 at 3; "}, {51, 54, "51 at 3; "},   {52, 54, "11 at 4; 52 at 3; "}};
    for (const auto& [alpha, shadowAlpha, notes] : cases) {
        TextRecorder recorder;
        recorder.textShadowAlpha = shadowAlpha;
        recorder.DrawText({3, 3, 9, 9}, font, "text", White.WithAlpha(alpha), MTextLeft);
        EXPECT_EQ(recorder.notes, notes);
    }
}

TEST_F(MDrawerToMBitmapTest, PlacesThatAreNoneOrFarAwayDoNoHarm) {
    for (const double value : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1e18}) {
        drawer.FillCircle({value, 3}, 5, White, Blend);
        drawer.FillCircle({3, 3}, value, White, Blend);
        drawer.FillTriangle({value, 3}, {3, value}, {20, 20}, White, Blend);
        drawer.LineF({value, 3}, {20, 20}, White);
        drawer.FillVerticalColumn(3, value, 10, White);
        drawer.RoundRectangle({0, 0, 20, 20}, value, White, Blend);
    }
    drawer.FillTriangle({-1e9, -1e9}, {1e9, -1e9}, {0, 1e9}, White, MDrawMode::Copy);
    EXPECT_EQ(bitmap.GetPixel(30, 24), White);
    // Only what is seen of a line takes time.
    bitmap.Create(64, 48);
    for (int32_t i = 0; i < 1000; ++i) drawer.Line({-500000000, 5}, {500000000, 5}, White);
    EXPECT_EQ(SumOf(bitmap), 64);
}

TEST_F(MDrawerToMBitmapTest, CornersStayEdgesAndCenterAreFilled) {
    PaintFrame({2, 1, 60, 44}, {5, 4}, MBitmapFill::Pattern, MBitmapFill::Pattern);
    for (const MPoint corner : {MPoint{0, 0}, {1, 0}, {0, 1}, {1, 1}})
        ExpectPart({2 + corner.x * 54, 1 + corner.y * 40}, {corner.x * 18, corner.y * 13}, {5, 4});
    // The middle of 13 columns and 9 rows repeats itself, and ends where the corners begin.
    for (const int32_t y : {5, 14, 23, 32})
        for (const int32_t x : {7, 20, 33}) ExpectPart({x, y}, {5, 4}, {13, 9});
    ExpectPart({46, 5}, {5, 4}, {10, 9});
    ExpectPart({2, 14}, {0, 4}, {5, 9});
    PaintFrame({2, 1, 60, 44}, {5, 4}, MBitmapFill::Stretch, MBitmapFill::Stretch);
    EXPECT_EQ(bitmap.GetPixel(7, 20), picture.GetPixel(5, 4 + (20 - 5) * 9 / 36));
    // One flag for the edges: these scale from left to right and tile from top to bottom.
    PaintFrame({2, 1, 60, 44}, {5, 4}, MBitmapFill::HPattern, MBitmapFill::Stretch);
    EXPECT_EQ(bitmap.GetPixel(55, 1), picture.GetPixel(17, 0));
    ExpectPart({2, 14}, {0, 4}, {5, 9});
}

TEST_F(MDrawerToMBitmapTest, CornersThatDoNotFitAreCutInside) {
    PaintFrame({3, 3, 25, 19}, {5, 4}, MBitmapFill::Stretch, MBitmapFill::Stretch);
    ExpectPart({3, 3}, {0, 0}, {23, 17});
    // Of an odd size the left and the upper corners have the pixel in the middle.
    PaintFrame({10, 10, 16, 14}, {5, 4}, MBitmapFill::Stretch, MBitmapFill::Stretch);
    ExpectPart({10, 10}, {0, 0}, {4, 3});
    ExpectPart({14, 13}, {20, 15}, {3, 2});
    PaintFrame({10, 10, 15, 13}, {5, 4}, MBitmapFill::Stretch, MBitmapFill::Stretch);
    ExpectPart({13, 12}, {20, 15}, {3, 2});
}

TEST_F(MDrawerToMBitmapTest, KeptPartsAreLeftAndUnknownFillsAreRefused) {
    drawer.FillRectangle({0, 0, 63, 47}, White, MDrawMode::Copy);
    const MRect rect{0, 0, 9, 9};
    drawer.PaintBitmapPart(rect, picture, picture.GetRect(), MDrawer::PartKept, Opaque, MDrawMode::Copy);
    drawer.PaintBitmapPart(rect, MBitmap(), {0, 0, 3, 3}, 0, Opaque, MDrawMode::Copy);
    for (const int32_t flags : {8, -1 & ~MDrawer::PartKept}) {
        const auto paint = [&] { drawer.PaintBitmapPart(rect, picture, rect, flags, 255, MDrawMode::Copy); };
        EXPECT_EQ(FailureOf(paint), "0: Invalid bitmap layout flags specified for processing.");
    }
    EXPECT_EQ(bitmap.GetPixel(5, 5), White);
}
