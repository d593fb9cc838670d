#include "ui/drawing/MDrawerToMBitmap.h"

#include "tests/support/MTestText.h"
#include "tests/ui/drawing/DrawerFixture.h"
#include "ui/drawing/MBitmapFill.h"

#include <cmath>
#include <limits>

namespace {

constexpr MColor White{255, 255, 255, 255};
constexpr uint8_t Opaque = 255;

int32_t Floor(int64_t number, int64_t divisor) {
    return static_cast<int32_t>(((number % divisor) + divisor) % divisor);
}

/// The sum of a channel's differences to black, in pixels.
double SumOf(const MBitmap& bitmap) {
    double sum = 0;
    for (int32_t y = 0; y < bitmap.GetHeight(); ++y)
        for (int32_t x = 0; x < bitmap.GetWidth(); ++x) sum += bitmap.GetPixel(x, y).alpha / 255.0;
    return sum;
}

}  // namespace

class MDrawerToMBitmapTest : public testing::Test {
protected:
    ~MDrawerToMBitmapTest() noexcept override = default;

    MBitmap bitmap{64, 48};
    MDrawerToMBitmap drawer{bitmap};
    const MBitmap picture = MMakeNoise(23, 17, 5);
};

TEST_F(MDrawerToMBitmapTest, TilesInTheRightPhase) {
    for (const MPoint offset : {MPoint{0, 0}, MPoint{5, 3}, MPoint{-1, -40}, MPoint{1000, -100000}}) {
        drawer.PatBlt({2, 3, 60, 40}, picture, offset, Opaque, MDrawMode::Copy);
        for (int32_t y = 3; y <= 40; ++y)
            for (int32_t x = 2; x <= 60; ++x)
                ASSERT_EQ(bitmap.GetPixel(x, y), picture.GetPixel(Floor(x - 2 + int64_t{offset.x}, 23),
                                                                  Floor(y - 3 + int64_t{offset.y}, 17)))
                    << x << ", " << y;
    }
}

TEST_F(MDrawerToMBitmapTest, StretchesToTheNearestPixel) {
    const MRect part{3, 2, 20, 12};
    for (const MRect rect :
         {MRect{0, 0, 63, 47}, MRect{5, 5, 9, 8}, MRect{-30, -20, 90, 70}, MRect{7, 7, 7, 7}}) {
        bitmap.Create(64, 48);
        drawer.StretchBlt(rect, picture, part, Opaque, MDrawMode::Copy);
        const MRect visible = rect.Intersected(bitmap.GetRect());
        for (int32_t y = visible.top; y <= visible.bottom; ++y)
            for (int32_t x = visible.left; x <= visible.right; ++x) {
                // The centre of the pixel, seen in the source.
                const double sourceX = part.left + (x - rect.left + 0.5) * part.GetWidth() / rect.GetWidth();
                const double sourceY = part.top + (y - rect.top + 0.5) * part.GetHeight() / rect.GetHeight();
                const double toEdgeX = std::abs(sourceX - std::round(sourceX));
                const double toEdgeY = std::abs(sourceY - std::round(sourceY));
                if (toEdgeX < 0.01 || toEdgeY < 0.01) continue;
                ASSERT_EQ(bitmap.GetPixel(x, y),
                          picture.GetPixel(static_cast<int32_t>(sourceX), static_cast<int32_t>(sourceY)))
                    << x << ", " << y;
            }
    }
}

TEST_F(MDrawerToMBitmapTest, PaintsABitmapOntoItselfAsItWas) {
    MBitmap noise = MMakeNoise(40, 30, 6);
    const MBitmap before = noise;
    MDrawerToMBitmap onNoise(noise);
    onNoise.BitBlt({0, 0, 34, 24}, noise, {5, 5}, Opaque, MDrawMode::Copy);
    for (int32_t y = 5; y < 30; ++y)
        for (int32_t x = 5; x < 40; ++x) ASSERT_EQ(noise.GetPixel(x, y), before.GetPixel(x - 5, y - 5));
}

TEST_F(MDrawerToMBitmapTest, PaintsPalettedPicturesInTheirColors) {
    MBitmap paletted;
    paletted.CreatePaletted(3, 2);
    paletted.EditPalette()[7] = MColor::FromRGB(10, 20, 30, 40);
    paletted.EditIndices()[4] = 7;
    drawer.BitBltWhole(paletted, {0, 0}, Opaque, MDrawMode::Copy);
    EXPECT_EQ(bitmap.GetPixel(1, 1), MColor::FromRGB(10, 20, 30, 40));
    EXPECT_EQ(bitmap.GetPixel(0, 0), paletted.GetPalette()[0]);
}

TEST_F(MDrawerToMBitmapTest, GradientsReachTheirColorsAtTheEdges) {
    const MColor from = MColor::FromRGB(0, 100, 200, 10);
    const MColor to = MColor::FromRGB(255, 50, 0, 250);
    for (int32_t direction = 0; direction < 8; ++direction) {
        drawer.FillRectangleGradient({0, 0, 63, 47}, from, to, static_cast<MGradientDirection>(direction),
                                     MDrawMode::Copy);
        const bool isInverted = direction % 2 != 0;
        const bool isDouble = direction / 2 % 2 != 0;
        const MPoint middle = direction >= 4 ? MPoint{31, 5} : MPoint{5, 23};
        EXPECT_EQ(bitmap.GetPixel(0, 0), isInverted ? to : from) << direction;
        EXPECT_EQ(bitmap.GetPixel(63, 47), isInverted == isDouble ? to : from) << direction;
        if (!isDouble) continue;
        EXPECT_EQ(bitmap.GetPixel(middle.x, middle.y), isInverted ? from : to) << direction;
    }
}

TEST_F(MDrawerToMBitmapTest, ShapesCoverTheirArea) {
    const double Pi = 3.14159265358979;
    const std::pair<const char*, std::pair<double, std::function<void()>>> shapes[] = {
        {"circle",
         {Pi * 100,
          [&] {
              drawer.FillCircle({30.3, 24.7}, 10, White, MDrawMode::Overlay);
          }}},
        {"ring",
         {Pi * (400 - 361),
          [&] {
              drawer.Circle({30, 24}, 20, White, MDrawMode::Overlay);
          }}},
        {"small circle",
         {Pi * 0.16,
          [&] {
              drawer.FillCircle({30.3, 24.7}, 0.4, White, MDrawMode::Overlay);
          }}},
        {"round rectangle",
         {40 * 30 - 36 * (4 - Pi),
          [&] {
              drawer.FillRoundRectangle({5, 5, 44, 34}, 6, White, MDrawMode::Overlay);
          }}},
        {"round frame",
         {40 * 30 - 36 * (4 - Pi) - (38 * 28 - 25 * (4 - Pi)),
          [&] {
              drawer.RoundRectangle({5, 5, 44, 34}, 6, White, MDrawMode::Overlay);
          }}},
        {"rectangle",
         {2 * 40 + 2 * 28,
          [&] {
              drawer.Rectangle({5, 5, 44, 34}, White, MDrawMode::Overlay);
          }}},
        {"triangle",
         {0.5 * 20 * 30,
          [&] {
              drawer.FillTriangle({10, 10}, {30, 10}, {25, 40}, White, MDrawMode::Overlay);
          }}},
        {"line",
         {std::sqrt(20.0 * 20 + 9 * 9) + 1,
          [&] {
              drawer.LineF({10, 10}, {30, 19}, White);
          }}},
        {"point",
         {1,
          [&] {
              drawer.SetPixelF({10.25, 10.7}, White);
          }}},
        {"column", {12.5, [&] { drawer.FillVerticalColumn(7, 3.25, 15.75, White); }}},
        {"graph",
         {0.5 * 4 * 2,
          [&] {
              MDrawer::ValueList values;
              for (const double value : {20.0, 21.0, 22.0, 21.0, 20.0}) values.Add(value);
              drawer.PaintHorizontalGraph(10, values, 20, White);
          }}},
    };
    for (const auto& [name, shape] : shapes) {
        bitmap.Create(64, 48);
        shape.second();
        EXPECT_NEAR(SumOf(bitmap), shape.first, std::max(0.06, shape.first * 0.003)) << name;
    }
}

TEST_F(MDrawerToMBitmapTest, ShapesThatTouchCoverEachPixelOnce) {
    drawer.FillRectangle({0, 0, 63, 47}, MColor::FromWord(0), MDrawMode::Copy);
    // Two triangles share an edge; what one leaves of a pixel the other one takes.
    drawer.FillTriangle({4.5, 4.5}, {50.5, 4.5}, {4.5, 40.5}, MColor{255, 0, 0, 255}, MDrawMode::Add);
    drawer.FillTriangle({50.5, 4.5}, {50.5, 40.5}, {4.5, 40.5}, MColor{255, 0, 0, 255}, MDrawMode::Add);
    for (int32_t y = 5; y <= 40; ++y)
        for (int32_t x = 5; x <= 50; ++x) ASSERT_NEAR(bitmap.GetPixel(x, y).blue, 254, 1) << x << ", " << y;
}

TEST_F(MDrawerToMBitmapTest, LinesMeetTheirEndsAndAreTheSameInEightDirections) {
    for (const MPoint way : {MPoint{0, 0}, MPoint{20, 0}, MPoint{20, 7}, MPoint{20, 20}, MPoint{7, 20}}) {
        for (const MPoint mirror : {MPoint{1, 1}, MPoint{-1, 1}, MPoint{1, -1}, MPoint{-1, -1}}) {
            bitmap.Create(64, 48);
            const MPoint end{30 + way.x * mirror.x, 24 + way.y * mirror.y};
            drawer.Line({30, 24}, end, White);
            EXPECT_EQ(bitmap.GetPixel(30, 24), White);
            EXPECT_EQ(bitmap.GetPixel(end.x, end.y), White);
            EXPECT_EQ(SumOf(bitmap), std::max(way.x, way.y) + 1);
        }
    }
}

TEST_F(MDrawerToMBitmapTest, WhatIsCoveredTwiceIsPaintedOnce) {
    const MColor half = White.WithAlpha(128);
    MDrawer::PointList points;
    for (const MPointF point : {MPointF{5, 20}, MPointF{30, 20}, MPointF{5, 20}}) points.Add(point);
    drawer.PaintPolyLine(points, half);
    EXPECT_EQ(bitmap.GetPixel(20, 20).alpha, 128);
    drawer.SetPixelOnce({1, 1}, half);
    drawer.SetPixelOnce({1, 1}, half);
    EXPECT_EQ(bitmap.GetPixel(1, 1), half);
}

TEST_F(MDrawerToMBitmapTest, CopyingAShapeLeavesWhatIsBesideIt) {
    drawer.FillRectangle({0, 0, 63, 47}, White, MDrawMode::Copy);
    drawer.FillCircle({30, 24}, 10, MColor{1, 2, 3, 4}, MDrawMode::Copy);
    EXPECT_EQ(bitmap.GetPixel(21, 15), White);
    EXPECT_EQ(bitmap.GetPixel(30, 24), (MColor{1, 2, 3, 4}));
}

TEST_F(MDrawerToMBitmapTest, PlacesThatAreNoneOrFarAwayDoNoHarm) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {nan, infinity, -infinity, 1e300, -1e18}) {
        drawer.FillCircle({value, 3}, 5, White, MDrawMode::Overlay);
        drawer.FillCircle({3, 3}, value, White, MDrawMode::Overlay);
        drawer.FillTriangle({value, 3}, {3, value}, {20, 20}, White, MDrawMode::Overlay);
        drawer.LineF({value, 3}, {20, 20}, White);
        drawer.FillVerticalColumn(3, value, 10, White);
        drawer.RoundRectangle({0, 0, 20, 20}, value, White, MDrawMode::Overlay);
    }
    drawer.FillTriangle({-1e9, -1e9}, {1e9, -1e9}, {0, 1e9}, White, MDrawMode::Copy);
    EXPECT_EQ(bitmap.GetPixel(30, 24), White);
    // Only what is seen of a line takes time.
    bitmap.Create(64, 48);
    for (int32_t i = 0; i < 1000; ++i) drawer.Line({-500000000, 5}, {500000000, 5}, White);
    EXPECT_EQ(SumOf(bitmap), 64);
}

class PaintCorneredTest : public MDrawerToMBitmapTest {
protected:
    ~PaintCorneredTest() noexcept override = default;

    void Paint(const MRect& rect, MPoint corner, MBitmapFill edges, MBitmapFill center) {
        bitmap.Create(64, 48);
        drawer.PaintCornered(rect, picture, picture.GetRect(), corner, static_cast<int32_t>(edges),
                             static_cast<int32_t>(center), Opaque, MDrawMode::Copy);
    }
};

TEST_F(PaintCorneredTest, CornersStayEdgesAndCenterAreFilled) {
    Paint({2, 1, 60, 44}, {5, 4}, MBitmapFill::Pattern, MBitmapFill::Pattern);
    for (int32_t y = 0; y < 4; ++y)
        for (int32_t x = 0; x < 5; ++x) {
            ASSERT_EQ(bitmap.GetPixel(2 + x, 1 + y), picture.GetPixel(x, y));
            ASSERT_EQ(bitmap.GetPixel(60 - x, 44 - y), picture.GetPixel(22 - x, 16 - y));
        }
    // The middle of 13 columns and 9 rows repeats itself.
    for (int32_t y = 5; y <= 40; ++y) {
        for (int32_t x = 7; x <= 55; ++x)
            ASSERT_EQ(bitmap.GetPixel(x, y), picture.GetPixel(5 + (x - 7) % 13, 4 + (y - 5) % 9));
        ASSERT_EQ(bitmap.GetPixel(2, y), picture.GetPixel(0, 4 + (y - 5) % 9));
    }
    Paint({2, 1, 60, 44}, {5, 4}, MBitmapFill::Stretch, MBitmapFill::Stretch);
    EXPECT_EQ(bitmap.GetPixel(7, 20), picture.GetPixel(5, 4 + (20 - 5) * 9 / 36));
    EXPECT_EQ(bitmap.GetPixel(55, 1), picture.GetPixel(17, 0));
}

TEST_F(PaintCorneredTest, OfTheSameSizeItIsTheWholePictureAndSmallerOnesKeepTheOuterCorners) {
    Paint({3, 3, 25, 19}, {5, 4}, MBitmapFill::Stretch, MBitmapFill::Stretch);
    for (int32_t y = 0; y < 17; ++y)
        for (int32_t x = 0; x < 23; ++x) ASSERT_EQ(bitmap.GetPixel(3 + x, 3 + y), picture.GetPixel(x, y));
    Paint({10, 10, 12, 11}, {5, 4}, MBitmapFill::Stretch, MBitmapFill::Stretch);
    EXPECT_EQ(bitmap.GetPixel(10, 10), picture.GetPixel(0, 0));
    EXPECT_EQ(bitmap.GetPixel(12, 11), picture.GetPixel(22, 16));
    EXPECT_EQ(SumOf(bitmap) > 0, true);
    EXPECT_EQ(bitmap.GetPixel(13, 11), MColor::FromWord(0));
    EXPECT_EQ(bitmap.GetPixel(12, 12), MColor::FromWord(0));
}

TEST_F(PaintCorneredTest, KeptPartsAreLeftAndUnknownFillsAreRefused) {
    drawer.FillRectangle({0, 0, 63, 47}, White, MDrawMode::Copy);
    drawer.PaintBitmapPart({0, 0, 9, 9}, picture, picture.GetRect(), MDrawer::PartKept, Opaque,
                           MDrawMode::Copy);
    drawer.PaintBitmapPart({0, 0, 9, 9}, MBitmap(), {0, 0, 3, 3}, 0, Opaque, MDrawMode::Copy);
    for (const int32_t flags : {8, -1 & ~MDrawer::PartKept})
        EXPECT_EQ(FailureOf([&] {
                      drawer.PaintBitmapPart({0, 0, 9, 9}, picture, picture.GetRect(), flags, Opaque,
                                             MDrawMode::Copy);
                  }),
                  "0: Invalid bitmap layout flags specified for processing.");
    EXPECT_EQ(bitmap.GetPixel(5, 5), White);
}
