#include "tests/ui/style/StyleFixture.h"
#include "ui/control/kinds/MStdBitmap.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/control/kinds/MStdIcon.h"
#include "ui/style/colors/MContrast.h"

#include <functional>

namespace {

constexpr int32_t States[] = {MDrawEnabled, MDrawEnabled | MDrawHighlighted, MDrawEnabled | MDrawFocused,
                              MDrawEnabled | MDrawFocused | MDrawHighlighted,
                              MDrawEnabled | MDrawFocused | MDrawClicked};

/// The best contrast that any pixel has with what was there before.
int32_t GetBestContrast(const MBitmap& before, const MBitmap& after) {
    int32_t best = 0;
    for (int32_t y = 0; y < before.GetHeight(); ++y)
        for (int32_t x = 0; x < before.GetWidth(); ++x)
            best = std::max(best, MContrast::GetRatio(before.GetPixel(x, y), after.GetPixel(x, y)));
    return best;
}

/// Measured on pixels: what a definition says may be covered by something else.
class ContrastTest : public StyleTest, public testing::WithParamInterface<bool> {
protected:
    ContrastTest() { Load(100, GetParam()); }
    ~ContrastTest() noexcept override = default;

    /// Of the letter "H", whose stems are whole pixels.
    int32_t GetTextContrast(Canvas& canvas, int32_t color, bool isInverted, int32_t state) {
        const MBitmap before = canvas.bitmap;
        MColor textColor;
        MFont* const font = style.GetFont(0, color, isInverted, static_cast<uint8_t>(state), textColor);
        const MRect rect = MRect::FromSize(0, 0, before.GetWidth(), before.GetHeight());
        canvas.Draw([&](MDrawer& drawer) {
            drawer.DrawText(rect, *font, "H", textColor, MTextCenter | MTextMiddle);
        });
        return GetBestContrast(before, canvas.bitmap);
    }
};

TEST_P(ContrastTest, TextIsReadableOnEachControl) {
    constexpr MControlType Types[] = {MControlType::Window,  MControlType::Panel, MControlType::Static,
                                      MControlType::Button,  MControlType::Edit,  MControlType::ListBox,
                                      MControlType::TabSet,  MControlType::Menu,  MControlType::MenuBar,
                                      MControlType::Switcher};
    for (const MControlType type : Types) {
        for (const int32_t state : States) {
            for (const MControlFlag flag :
                 {MControlFlag::Collapsable, MControlFlag::DefaultButton, MControlFlag::Checked}) {
                PosedControl control(type, {60, 40}, state);
                control.Set(flag);
                Canvas canvas = Paint(control);
                EXPECT_GE(GetTextContrast(canvas, 0, style.IsInverted(control), state), MContrast::Text)
                    << MControlTypeNames[static_cast<size_t>(type)] << " state " << state << " flag "
                    << static_cast<int>(flag);
            }
        }
    }
}

TEST_P(ContrastTest, TextIsReadableOnParts) {
    using Painter = std::function<void(MControl&, MDrawer&, const MRect&, uint8_t)>;
    struct Part {
        const char* name;
        MControlType type;
        bool isInverted;
        Painter paint;
    };
    const Part parts[] = {{"row", MControlType::ListBox, false,
                           [&](auto& c, auto& d, auto& r, auto s) { style.PaintListItem(c, d, r, s); }},
                          {"menu item", MControlType::Menu, false,
                           [&](auto& c, auto& d, auto& r, auto s) { style.PaintListItem(c, d, r, s); }},
                          {"tab", MControlType::TabSet, false,
                           [&](auto& c, auto& d, auto& r, auto s) { style.PaintTab(c, d, r, s); }},
                          {"menu bar item", MControlType::MenuBar, false,
                           [&](auto& c, auto& d, auto& r, auto s) { style.PaintMenuBarItem(c, d, r, s); }},
                          {"highlight", MControlType::ListBox, false,
                           [&](auto& c, auto& d, auto& r, auto s) { style.PaintHighlight(c, d, r, s); }},
                          {"selection", MControlType::Edit, true,
                           [&](auto& c, auto& d, auto& r, auto s) { style.PaintSelection(c, d, r, s); }}};
    for (const Part& part : parts) {
        for (const int32_t state : States) {
            PosedControl control(part.type, {60, 40}, MDrawEnabled);
            Canvas canvas = Paint(control);
            Paint(canvas, control, {}, [&](MDrawer& drawer) {
                part.paint(control, drawer, {0, 0, 59, 39}, static_cast<uint8_t>(state));
            });
            EXPECT_GE(GetTextContrast(canvas, 0, part.isInverted, state), MContrast::Text)
                << part.name << " state " << state;
        }
    }
}

TEST_P(ContrastTest, ColoredTextIsReadableOnEachSurface) {
    for (const MControlType type :
         {MControlType::Window, MControlType::Panel, MControlType::Edit, MControlType::Menu})
        for (int32_t color = 0; color < static_cast<int32_t>(std::size(MStdColorNames)); ++color) {
            PosedControl control(type, {60, 40}, MDrawEnabled);
            Canvas canvas = Paint(control);
            EXPECT_GE(GetTextContrast(canvas, color, false, MDrawEnabled), MContrast::Text)
                << MControlTypeNames[static_cast<size_t>(type)] << " " << MStdColorNames[color];
        }
}

TEST_P(ContrastTest, IconsAndSignsStandOut) {
    for (const MControlType type : {MControlType::Window, MControlType::Panel, MControlType::Button}) {
        PosedControl control(type, {60, 60}, MDrawEnabled | MDrawHighlighted);
        const Canvas canvas = Paint(control);
        for (int32_t i = 0; i < static_cast<int32_t>(std::size(MStdIconNames)); ++i) {
            MBitmap* const icon = style.GetStdIcon(i);
            if (!icon) continue;
            Canvas shown = canvas;
            shown.Draw([&](MDrawer& drawer) {
                drawer.BitBltWhole(*icon, {20, 20}, 255, MDrawMode::Alphablend);
            });
            EXPECT_GE(GetBestContrast(canvas.bitmap, shown.bitmap), MContrast::Shape) << MStdIconNames[i];
        }
    }
    const Canvas ground({60, 60}, GetGround());
    for (int32_t i = 0; i < static_cast<int32_t>(std::size(MStdBitmapNames)); ++i) {
        Canvas shown = ground;
        MBitmap* const sign = style.GetStdBitmap(i);
        ASSERT_TRUE(sign) << MStdBitmapNames[i];
        shown.Draw([&](MDrawer& drawer) { drawer.BitBltWhole(*sign, {6, 6}, 255, MDrawMode::Alphablend); });
        EXPECT_GE(GetBestContrast(ground.bitmap, shown.bitmap), MContrast::Shape) << MStdBitmapNames[i];
    }
}

/// From the ground on the left to the middle.
int32_t GetEdgeContrast(const Canvas& canvas) {
    const int32_t y = canvas.bitmap.GetHeight() / 2;
    int32_t best = 0;
    for (int32_t x = 1; x < canvas.bitmap.GetWidth() / 2; ++x)
        best = std::max(best, MContrast::GetRatio(canvas.At(0, y), canvas.At(x, y)));
    return best;
}

TEST_P(ContrastTest, EntriesHaveVisibleBorders) {
    for (const MControlType type : {MControlType::Edit, MControlType::ListBox, MControlType::TreeControl}) {
        PosedControl control(type, {80, 40}, MDrawEnabled);
        EXPECT_GE(GetEdgeContrast(Paint(control, 2)), MContrast::Shape);
    }
    for (const MCheckMarkShape shape :
         {MCheckMarkShape::CheckBox, MCheckMarkShape::RadioButton, MCheckMarkShape::RowCheckBox})
        for (int32_t value = 0; value < 2; ++value) {
            PosedControl control(MControlType::CheckBox, {40, 40}, MDrawEnabled);
            Canvas canvas = Paint(control, 1);
            Paint(canvas, control, {1, 1}, [&](MDrawer& drawer) {
                style.PaintCheckMark(control, drawer, MRect::FromSize(5, 5, 21, 21), shape, value,
                                     MDrawEnabled);
            });
            EXPECT_GE(GetEdgeContrast(canvas), MContrast::Shape);
        }
}

TEST_P(ContrastTest, FocusIsSeenAndMovesNothing) {
    for (const MControlType type : {MControlType::Button, MControlType::Edit, MControlType::ListBox})
        for (const MControlFlag flag : {MControlFlag::Collapsable, MControlFlag::DefaultButton}) {
            PosedControl plain(type, {80, 40}, MDrawEnabled);
            PosedControl focused(type, {80, 40}, MDrawEnabled | MDrawFocused);
            plain.Set(flag);
            focused.Set(flag);
            const Canvas before = Paint(plain);
            const Canvas after = Paint(focused);
            int32_t best = 0;
            for (int32_t x = 0; x < 3; ++x)
                best = std::max(best, MContrast::GetRatio(before.At(x, 20), after.At(x, 20)));
            EXPECT_GE(best, MContrast::Shape);
            for (int32_t y = 5; y < 35; ++y)
                for (int32_t x = 3; x < 77; ++x) ASSERT_EQ(before.At(x, y), after.At(x, y)) << x << ", " << y;
        }
}

TEST_P(ContrastTest, FocusIsSeenOnParts) {
    PosedControl control(MControlType::Panel, {60, 40}, MDrawEnabled);
    const MRect rect{10, 10, 49, 29};
    const std::function<void(MDrawer&, int32_t)> painters[] = {
        [&](MDrawer& drawer, int32_t focus) {
            style.PaintMenuBarItem(
                control, drawer, rect,
                static_cast<uint8_t>(MDrawEnabled | (focus ? MDrawHighlighted | focus : 0)));
        },
        [&](MDrawer& drawer, int32_t focus) {
            style.PaintSplitter(control, drawer, rect, true, static_cast<uint8_t>(MDrawEnabled | focus));
        },
        [&](MDrawer& drawer, int32_t focus) {
            MScrollBarParts parts;
            parts.thumb = rect;
            parts.thumbState = static_cast<uint8_t>(MDrawEnabled | focus);
            style.PaintVerticalScrollBar(control, drawer, parts);
        }};
    for (const auto& paint : painters) {
        Canvas plain = Paint(control);
        Canvas focused = plain;
        Paint(plain, control, {}, [&](MDrawer& drawer) { paint(drawer, 0); });
        Paint(focused, control, {}, [&](MDrawer& drawer) { paint(drawer, MDrawFocused); });
        EXPECT_GE(GetBestContrast(plain.bitmap, focused.bitmap), MContrast::Shape);
    }
}

TEST_P(ContrastTest, EachStateLooksDifferent) {
    for (const MControlFlag flag :
         {MControlFlag::Collapsable, MControlFlag::DefaultButton, MControlFlag::Checked}) {
        std::vector<Canvas> canvases;
        for (const MDrawState state :
             {MDrawEnabled, MDrawEnabled | MDrawHighlighted, MDrawEnabled | MDrawFocused, MDrawDisabled}) {
            PosedControl control(MControlType::Button, {80, 40}, state);
            control.Set(flag);
            canvases.push_back(Paint(control));
        }
        for (size_t i = 0; i < canvases.size(); ++i)
            for (size_t j = i + 1; j < canvases.size(); ++j)
                EXPECT_FALSE(AreEqual(canvases[i].bitmap, canvases[j].bitmap)) << i << " and " << j;
    }
}

INSTANTIATE_TEST_SUITE_P(Lights, ContrastTest, testing::Bool(),
                         [](const auto& light) { return light.param ? "Light" : "Dark"; });

}  // namespace
