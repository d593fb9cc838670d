#include "tests/support/MTestText.h"
#include "ui/drawing/MBitmapFill.h"
#include "ui/image/MColor.h"
#include "ui/image/MColorOp.h"

namespace {

/// Calls `check` with colours from all over the cube.
template <class Function>
void ForColors(int32_t stride, Function check) {
    const auto byte = [](int32_t value) { return static_cast<uint8_t>(value); };
    for (int32_t red = 0; red < 256; red += stride)
        for (int32_t green = 0; green < 256; green += 15)
            for (int32_t blue = 0; blue < 256; blue += 51)
                check(MColor::FromRGB(byte(red), byte(green), byte(blue), 77));
}

}  // namespace

TEST(ColorTest, TextIsRedGreenBlueAlpha) {
    EXPECT_EQ(Text(MColor::FromRGB(0x5A, 0x6A, 0x7F).GetText()), "5A6A7FFF");
    EXPECT_EQ(Text(MColor::FromRGB(0, 1, 0x0A, 0x10).GetText()), "00010A10");
    EXPECT_EQ(MColor::Parse("5a6A7f01"), MColor::FromRGB(0x5A, 0x6A, 0x7F, 1));
    for (const char* text : {"", "5A6A7F", "5A6A7FFFF", "5A6A7FFG", "5A6A7F 1", "#A6A7FFF", "-1000000"})
        EXPECT_EQ(FailureOf([&] { (void)MColor::Parse(text); }),
                  "0: Invalid color to parse (" + std::string(text) + ").");
}

TEST(ColorTest, HueSaturationAndLightnessThereAndBack) {
    const std::pair<const char*, MHSL> cases[] = {
        {"FF0000FF", {0, 1, 0.5}},  {"00FF00FF", {120, 1, 0.5}}, {"0000FFFF", {240, 1, 0.5}},
        {"FFFF00FF", {60, 1, 0.5}}, {"FF00FFFF", {300, 1, 0.5}}, {"BF4080FF", {330, 0.498, 0.5}},
        {"404040FF", {0, 0, 0.251}}};
    for (const auto& [text, parts] : cases) {
        const MHSL found = MColor::Parse(text).GetHSL();
        EXPECT_NEAR(found.hue, parts.hue, 0.5) << text;
        EXPECT_NEAR(found.saturation, parts.saturation, 0.001) << text;
        EXPECT_NEAR(found.lightness, parts.lightness, 0.002) << text;
        EXPECT_EQ(MColor::FromHSL({found.hue - 720, found.saturation, found.lightness}), MColor::Parse(text));
    }
    ForColors(1, [](MColor color) { ASSERT_EQ(MColor::FromHSL(color.GetHSL(), 77), color); });
}

TEST(ColorTest, LightnessOfAnotherKeepsHueAndSaturation) {
    ForColors(17, [](MColor color) {
        ASSERT_EQ(color.WithLightnessOf(color), color);
        for (int32_t i = 0; i < 256; i += 15) {
            const auto grey = static_cast<uint8_t>(i);
            const MColor light = MColor::FromRGB(grey, static_cast<uint8_t>(255 - grey), grey / 2);
            MHSL wanted = color.GetHSL();
            wanted.lightness = light.GetHSL().lightness;
            const MColor exact = MColor::FromHSL(wanted, 77);
            const MColor moved = color.WithLightnessOf(light);
            for (const auto channel : {&MColor::red, &MColor::green, &MColor::blue})
                ASSERT_NEAR(moved.*channel, exact.*channel, 1) << Text(color.GetText());
            ASSERT_EQ(moved.alpha, 77);
        }
    });
}

TEST(ColorTest, ChangesOfContrastBrightnessAndSaturation) {
    const MColor color = MColor::FromRGB(0xC0, 0x40, 0x80, 0x33);
    const MColor grey = MColor::FromRGB(0x80, 0x80, 0x80, 0x33);
    const auto texts = [](std::initializer_list<MColor> colors) {
        std::string all;
        for (const MColor changed : colors) all += Text(changed.GetText()) + " ";
        return all;
    };
    EXPECT_EQ(texts({color.WithContrast(0), color.WithContrast(255), color.WithContrast(-255)}),
              "C0408033 FF009033 7F7F7F33 ");
    EXPECT_EQ(texts({color.WithContrast(-128), color.WithContrast(16)}), "9F607F33 FF018133 ");
    EXPECT_EQ(texts({color.WithBrightness(80), color.WithBrightness(-80)}), "FF90D033 70003033 ");
    EXPECT_EQ(texts({color.WithSaturation(255), color.WithSaturation(-255), grey.WithSaturation(99)}),
              "FF018033 80808033 80808033 ");
    EXPECT_EQ(texts({color.WithSaturationTimes(0.5), color.WithSaturationTimes(9)}), "A0608033 FF018033 ");
}

TEST(ColorTest, OperationsFillsAndAlignmentsHaveNames) {
    EXPECT_EQ(MParseColorOp(""), MColorOp::None);
    EXPECT_EQ(MParseColorOp("incContrast"), MColorOp::IncContrast);
    for (int32_t i = 0; i < MColorOpCount; ++i)
        EXPECT_EQ(MParseColorOp(MGetColorOpName(static_cast<MColorOp>(i))), static_cast<MColorOp>(i));
    EXPECT_EQ(FailureOf([] { (void)MParseColorOp("Alpha blend"); }),
              "0: Invalid MColorOp identifier to parse (Alpha blend).");
    EXPECT_EQ(MParseBitmapFill(""), MBitmapFill::Stretch);
    EXPECT_EQ(MParseBitmapFill("vpattern"), MBitmapFill::VPattern);
    EXPECT_EQ(Text(MGetBitmapFillName(MBitmapFill::HPattern)), "HPattern");
    EXPECT_EQ(FailureOf([] { (void)MParseBitmapFill("Tile"); }),
              "0: Invalid MBitmapFill identifier to parse (Tile).");
    EXPECT_EQ(MParseBitmapAlignment("middle"), MBitmapAlignment::Left);
    EXPECT_EQ(Text(MGetBitmapAlignmentName(MBitmapAlignment::Center)), "Center");
}
