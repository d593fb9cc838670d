#include "foundation/xml/MXMLItem.h"
#include "tests/ui/widgets/WidgetFixture.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/text/MShortenText.h"
#include "ui/text/MTextLayout.h"
#include "ui/widgets/buttons/MButton.h"
#include "ui/widgets/content/MControlWithForwardGenerateDocCallback.h"
#include "ui/widgets/content/MLabel.h"
#include "ui/widgets/content/MPanelGradient.h"
#include "ui/widgets/content/MStaticMultiLine.h"

#include <random>

namespace {

using ContentTest = WidgetTest;

TEST_F(ContentTest, ShortensWhatDoesNotFit) {
    MColor color;
    MFont& font = *windows.GetStyle()->GetFont(0, 0, false, MDrawEnabled, color);
    std::mt19937 random(1);
    const char16_t units[] = {u'a', u'W', u'i', u' ', u'\n', 0xE9, 0x4E2D, 0xD83D, 0xDE00};
    for (int32_t round = 0; round < 2000; ++round) {
        MString text;
        for (uint32_t i = random() % 20; i > 0; --i) text.Append(MChar(units[random() % std::size(units)]));
        const auto width = static_cast<int32_t>(random() % 160);
        const MString shortened = MShortenText(font, text, width);
        const bool fits = MTextLayout::GetWidth(font, text) <= width;
        ASSERT_EQ(shortened.IsExactly(text), fits) << Text(text) << " in " << width;
        ASSERT_LE(MTextLayout::GetWidth(font, shortened),
                  std::max(width, MTextLayout::GetWidth(font, MString::Copy(u"\u2026"))));
        ASSERT_EQ(MTextLayout::GetHeight(font, shortened), MTextLayout::GetHeight(font, text));
        text.ReplaceChar('\n', " ");
        const MString inside = MShortenMiddle(font, text, width);
        ASSERT_EQ(inside.IsExactly(text), font.GetTextWidth(text) <= width) << Text(text) << " in " << width;
        ASSERT_LE(font.GetTextWidth(inside), std::max(width, font.GetTextWidth(MString::Copy(u"\u2026"))));
    }
    EXPECT_EQ(
        Text(MShortenMiddle(font, "/home/anna/plug-ins/Reverb.so", font.GetTextWidth("/home/a…s/Reverb.so")))
            .substr(0, 3),
        "/ho");
}

/// What is painted of a static in a corner of the window, from there.
MRect FindInk(MWindowSystemHeadless& system, MControl& control) {
    control.RedrawNow();
    const MBitmap& picture = system.GetPicture(control.GetRoot());
    const MColor ground = picture.GetPixel(1, 1);
    MRect ink;
    for (int32_t y = 0; y < control.size.y; ++y)
        for (int32_t x = 0; x < control.size.x; ++x)
            if (picture.GetPixel(x + control.windowOffset.x, y + control.windowOffset.y) != ground)
                ink = ink.United({x, y, x, y});
    return ink;
}

TEST_F(ContentTest, StandsWhereItIsTold) {
    auto& box = Add<MStatic>(MRect::FromSize(20, 20, 100, 60));
    box.SetIconAndText(MStdIcon::OK, "Text");
    Open(root);
    const MPoint border{4, 4};
    const MRect whole = FindInk(system, box);
    EXPECT_EQ(whole.left, border.x + 3) << "the icon of the plain style has a margin";
    for (const MAlignment across : {MAlignLeft, MAlignCenter, MAlignRight}) {
        for (const MAlignment down : {MAlignTop, MAlignCenter, MAlignBottom}) {
            box.SetContentAlignment(across | down);
            const MRect ink = FindInk(system, box);
            EXPECT_EQ(ink.GetWidth(), whole.GetWidth());
            EXPECT_TRUE(box.clientRect.Intersected(ink) == ink);
            EXPECT_TRUE(across != MAlignRight || ink.right > 90);
            EXPECT_TRUE(across != MAlignCenter || std::abs(ink.left + ink.right - 102) < 6);
            EXPECT_TRUE(down != MAlignTop || ink.top < 10);
            EXPECT_TRUE(down != MAlignBottom || ink.bottom > 45);
        }
    }
    box.size.x = 30;
    box.UpdateLayout();
    EXPECT_LE(FindInk(system, box).right, 30 - border.x) << "shortened";
}

TEST_F(ContentTest, WindowsGrowWithTheirTexts) {
    auto& text = *new MStaticMultiLine(&root, "text");
    root.SetClientControl(&text);
    Open(root);
    const int32_t before = root.minimalSize.y;
    MString words;
    for (int32_t i = 0; i < 200; ++i) words += "word ";
    text.SetText(words);
    EXPECT_GT(root.minimalSize.y, before);
    const int32_t narrow = text.GetPlasticSize(1, 100);
    const int32_t wide = text.GetPlasticSize(1, 400);
    EXPECT_GT(narrow, 3 * wide);
    const int32_t width = text.GetPlasticSize(0, narrow);
    EXPECT_LE(width, 100);
    EXPECT_LE(text.GetPlasticSize(1, width), narrow) << "the least width that is enough";
    EXPECT_GT(text.GetPlasticSize(1, width - 1), narrow);
}

TEST_F(ContentTest, ATextThatComesLaterGetsItsPlace) {
    auto& text = *new MStatic(&root, "text");
    text.layoutRatio = {0, 0};
    (new MLayoutTop(root))->Add(text);
    Open(root);
    text.size = {};
    root.UpdateLayout();
    ASSERT_FALSE(text.IsShown());
    text.SetText("Done");
    EXPECT_TRUE(text.IsShown());
}

TEST_F(ContentTest, LabelsFollowTheirControls) {
    MXMLItem item("label");
    item.SetAttribute("linkedcontrol", "target");
    item.SetAttribute("caption", "Name:");
    auto& label = Add<MLabel>({10, 10, 60, 30});
    label.LoadFromXml(item);
    auto& other = Add<MControl>({10, 80, 60, 100});
    auto& target = Add<MControl>({10, 40, 60, 60}, "target");
    target.SetEnabled(false);
    Open(root);
    other.SetFocus();
    EXPECT_FALSE(label.IsEnabled());
    target.SetEnabled(true);
    user.Click(At(label));
    EXPECT_TRUE(target.HasFocus());
    target.SetVisible(false);
    EXPECT_FALSE(label.IsShown());
    delete &target;
    label.SetVisible(true);
    user.Click(At(label));
}

TEST_F(ContentTest, SomebodyElseMayWriteTheHelp) {
    auto& button = Add<MControlWithForwardGenerateDocCallback<MButton>>({10, 10, 60, 30});
    Open(root);
    button.ShowHelp(button);
    EXPECT_THAT(shown, testing::HasSubstr("presses the button"));
    button.SetGenerateDocCallback([](MXMLItem& item) { item.SetValue("Written elsewhere"); });
    button.ShowHelp(button);
    EXPECT_THAT(shown, testing::EndsWith("</tagset>Written elsewhere"));
}

TEST_F(ContentTest, ReadsOnBlack) {
    auto& panel = Add<MPanelGradientBlack>(MRect::FromSize(0, 0, 200, 60));
    panel.SetText("Title");
    Open(root);
    root.RedrawNow();
    const MBitmap& picture = system.GetPicture(root);
    int32_t darkest = 255;
    int32_t lightest = 0;
    for (int32_t y = 0; y < 60; ++y)
        for (int32_t x = 0; x < 200; ++x) {
            const int32_t luminance = picture.GetPixel(x, y).GetLuminance();
            darkest = std::min(darkest, luminance);
            lightest = std::max(lightest, luminance);
        }
    EXPECT_LT(darkest, 20);
    EXPECT_GT(lightest, 180);
}

}  // namespace
