#include "tests/ui/style/StyleFixture.h"
#include "ui/control/kinds/MStyleMetric.h"

namespace {

constexpr int32_t Percents[] = {100, 125, 150, 200, 300};

/// Controls that have a face with straight edges.
constexpr MControlType Faces[] = {MControlType::Button,  MControlType::Edit,        MControlType::Panel,
                                  MControlType::ListBox, MControlType::ProgressBar, MControlType::Menu};

TEST_F(StyleTest, EdgesLieOnWholePixelsAtEachScale) {
    for (const int32_t percent : Percents) {
        Load(percent, false);
        for (const MControlType type : Faces) {
            const int32_t state = MDrawEnabled | (type == MControlType::Edit ? MDrawFocused : 0);
            PosedControl control(type, {style.ScaleX(80), style.ScaleY(60)}, state);
            const Canvas canvas = Paint(control);
            // Where an edge lies between pixels, those along it are mixtures: they differ from their
            // neighbours on both sides, as nothing does in a frame of lines that lie on pixels. So from the
            // outside to the middle no more colours may follow one another than there are lines.
            const int32_t y = control.size.y / 2;
            int32_t changes = 0;
            for (int32_t x = 1; x < control.size.x / 2; ++x)
                changes += canvas.At(x, y) == canvas.At(x - 1, y) ? 0 : 1;
            EXPECT_LE(changes, 4) << MControlTypeNames[static_cast<size_t>(type)] << " at " << percent;
            const int32_t x = control.size.x / 2;
            for (int32_t row = 0; row < control.size.y; ++row)
                ASSERT_EQ(canvas.At(x, row), canvas.At(x + 1, row)) << percent;
        }
    }
}

TEST_F(StyleTest, HairlinesAreOnePixelUpTo150PercentAndTwoFrom200) {
    for (const int32_t percent : Percents) {
        Load(percent, false);
        PosedControl edit(MControlType::Edit, {style.ScaleX(80), style.ScaleY(40)}, MDrawEnabled);
        const Canvas canvas = Paint(edit);
        const int32_t y = edit.size.y / 2;
        const MColor border = style.GetColors().Get(MStyleTone::EntryLine);
        int32_t first = 0;
        while (canvas.At(first, y) == GetGround()) ++first;
        int32_t width = 0;
        while (std::abs(canvas.At(first + width, y).green - border.green) <= 1) ++width;
        EXPECT_EQ(first, MStyleScale::Scale(3, percent)) << percent;
        EXPECT_EQ(width, percent < 200 ? 1 : 2) << percent;
    }
}

TEST_F(StyleTest, MetricsFontsAndPicturesFollowTheScale) {
    struct Row {
        int32_t percent;
        int32_t space;
        int32_t icon;
        int32_t sign;
    };
    for (const auto& [percent, space, icon, sign] :
         {Row{100, 8, 10, 48}, Row{125, 10, 13, 60}, Row{150, 12, 17, 72}, Row{200, 16, 21, 96},
          Row{300, 24, 30, 144}}) {
        Load(percent, false);
        EXPECT_EQ(style.GetMetric(static_cast<int32_t>(MStyleMetric::DefGridLayoutSpace)), space);
        EXPECT_EQ(style.GetStdIcon(static_cast<int32_t>(MStdIcon::Close))->GetHeight(), icon);
        EXPECT_EQ(style.GetStdBitmap(0)->GetHeight(), sign);
        MColor color;
        const MFont* const font = style.GetFont(0, 0, false, MDrawEnabled, color);
        const int32_t height = 15 * percent / 100;
        const int32_t play = 2 + percent / 100;
        EXPECT_NEAR(font->GetAscent() + font->GetDescent(), height, play);
        PosedControl button(MControlType::Button, {}, MDrawEnabled);
        const MPoint outer = style.ConvertToWindow(button, {100, 100});
        EXPECT_EQ(outer.x, 100 + 2 * (MStyleScale::Scale(11, percent) + MStyleScale::Scale(3, percent)));
        EXPECT_EQ(style.ConvertToClient(button, outer), (MPoint{100, 100}));
    }
}

TEST_F(StyleTest, WhatIsSmallerThanItsCornersPaintsAndStaysInside) {
    constexpr MColor Outside = MColor::FromRGB(1, 2, 3);
    constexpr int32_t Around = 8;
    for (const bool isLight : {false, true}) {
        Load(isLight ? 300 : 100, isLight);
        for (size_t type = 0; type < std::size(MControlTypeNames); ++type) {
            for (const MPoint size : {MPoint{1, 1}, {2, 9}, {7, 3}, {5, 40}, {40, 4}, {11, 11}}) {
                PosedControl control(static_cast<MControlType>(type), size, MDrawEnabled | MDrawFocused);
                Canvas canvas({size.x + 2 * Around, size.y + 2 * Around}, Outside);
                Paint(canvas, control, {Around, Around}, [&](MDrawer& drawer) {
                    style.PaintControl(control, drawer);
                    style.PaintValue(control, drawer, control.windowRect, {0.4, 0, 0.9, control.state});
                    style.PaintListItem(control, drawer, control.windowRect, MDrawEnabled | MDrawClicked);
                });
                const MRect inside = MRect::FromSize(Around, Around, size.x, size.y);
                for (int32_t y = 0; y < canvas.bitmap.GetHeight(); ++y)
                    for (int32_t x = 0; x < canvas.bitmap.GetWidth(); ++x)
                        if (!inside.Contains({x, y})) {
                            ASSERT_EQ(canvas.At(x, y), Outside)
                                << MControlTypeNames[type] << " " << size.x << "x" << size.y;
                        }
            }
        }
    }
}

TEST_F(StyleTest, PaintingInPiecesGivesWhatPaintingOnceGives) {
    for (size_t type = 0; type < std::size(MControlTypeNames); ++type) {
        PosedControl control(static_cast<MControlType>(type), {61, 47}, MDrawEnabled | MDrawFocused);
        const MValueLook look{0.7, 0, std::nullopt, control.state};
        const auto paint = [&](MDrawer& drawer) {
            style.PaintControl(control, drawer);
            style.PaintValue(control, drawer, control.windowRect, look);
        };
        Canvas whole(control.size, GetGround());
        Paint(whole, control, {}, paint);
        Canvas pieces(control.size, GetGround());
        for (int32_t y = 0; y < control.size.y; y += 13)
            for (int32_t x = 0; x < control.size.x; x += 17) {
                pieces.clip = MRect::FromSize(x, y, 17, 13);
                Paint(pieces, control, {}, paint);
            }
        EXPECT_TRUE(AreEqual(whole.bitmap, pieces.bitmap)) << MControlTypeNames[type];
    }
}

TEST_F(StyleTest, NothingBehindShowsThroughOpaqueParts) {
    constexpr int32_t States[] = {MDrawDisabled, MDrawEnabled, MDrawEnabled | MDrawClicked,
                                  MDrawEnabled | MDrawFocused | MDrawHighlighted};
    int32_t found = 0;
    for (const int32_t percent : {100, 300}) {
        Load(percent, false);
        for (const MControlType type : Faces) {
            for (const int32_t state : States) {
                PosedControl control(type, {style.ScaleX(80), style.ScaleY(60)}, state);
                const MRect opaque = style.GetOpaquePart(control);
                found += opaque.IsEmpty() ? 0 : 1;
                Canvas canvases[] = {{control.size, {0, 0, 0, 255}}, {control.size, {255, 255, 255, 255}}};
                for (Canvas& canvas : canvases)
                    Paint(canvas, control, {}, [&](MDrawer& drawer) { style.PaintControl(control, drawer); });
                for (int32_t y = opaque.top; y <= opaque.bottom; ++y)
                    for (int32_t x = opaque.left; x <= opaque.right; ++x)
                        ASSERT_EQ(canvases[0].At(x, y), canvases[1].At(x, y))
                            << percent << " state " << state;
            }
        }
    }
    EXPECT_GE(found, 24) << "entries, lists and panels are opaque at least";
}

TEST_F(StyleTest, TrackersPutTheirThumbWhereTheMouseIs) {
    for (const MPoint size : {MPoint{140, 22}, {22, 140}}) {
        PosedControl tracker(MControlType::Tracker, size, MDrawEnabled);
        MRect before = style.GetTrackerRect(tracker, 0);
        for (int32_t step = 0; step <= 20; ++step) {
            const double value = step / 20.0;
            const MRect thumb = style.GetTrackerRect(tracker, value);
            const MPoint middle{(thumb.left + thumb.right) / 2, (thumb.top + thumb.bottom) / 2};
            EXPECT_NEAR(style.GetTrackerPosition(tracker, middle), value, 0.015);
            EXPECT_TRUE(size.x > size.y ? thumb.left >= before.left : thumb.top <= before.top);
            EXPECT_EQ(thumb, thumb.Intersected(tracker.windowRect));
            before = thumb;
        }
        EXPECT_EQ(style.GetTrackerPosition(tracker, {-1000, 1000}), 0);
        EXPECT_EQ(style.GetTrackerPosition(tracker, {1000, -1000}), 1);
    }
}

}  // namespace
