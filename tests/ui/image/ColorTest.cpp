#include "tests/support/MTestText.h"
#include "ui/drawing/MBitmapFill.h"
#include "ui/image/MColor.h"
#include "ui/image/MColorOp.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct HSL {
    double hue = 0;
    double saturation = 0;
    double lightness = 0;
};

/// The textbook's conversion.
HSL ToHSL(MColor color) {
    const double red = color.red / 255.0;
    const double green = color.green / 255.0;
    const double blue = color.blue / 255.0;
    const auto [low, high] = std::minmax({red, green, blue});
    HSL result{0, 0, (low + high) / 2};
    const double chroma = high - low;
    if (chroma == 0) return result;
    result.saturation = chroma / (1 - std::abs(2 * result.lightness - 1));
    if (high == red)
        result.hue = std::fmod((green - blue) / chroma + 6, 6);
    else if (high == green)
        result.hue = (blue - red) / chroma + 2;
    else
        result.hue = (red - green) / chroma + 4;
    return result;
}

double ChannelOf(const HSL& color, double offset) {
    const double place = std::fmod(offset + color.hue * 2, 12);
    const double reach = color.saturation * std::min(color.lightness, 1 - color.lightness);
    return 255 * (color.lightness - reach * std::clamp(std::min(place - 3, 9 - place), -1.0, 1.0));
}

}  // namespace

TEST(ColorTest, TextIsRedGreenBlueAlpha) {
    EXPECT_EQ(Text(MColor::FromRGB(0x5A, 0x6A, 0x7F).GetText()), "5A6A7FFF");
    EXPECT_EQ(Text(MColor::FromRGB(0, 1, 0x0A, 0x10).GetText()), "00010A10");
    EXPECT_EQ(MColor::Parse("5a6A7f01"), MColor::FromRGB(0x5A, 0x6A, 0x7F, 1));
    EXPECT_EQ(MColor::FromRGB(1, 2, 3, 4).GetWord(), 0x04010203u);

    for (const char* text : {"", "5A6A7F", "5A6A7FFFF", "5A6A7FFG", "5A6A7F 1", "#A6A7FFF", "-1000000"})
        EXPECT_EQ(FailureOf([&] { (void)MColor::Parse(text); }),
                  "0: Invalid color to parse (" + std::string(text) + ").");
}

TEST(ColorTest, LightnessOfAnotherKeepsHueAndSaturation) {
    for (int32_t red = 0; red < 256; red += 17)
        for (int32_t green = 0; green < 256; green += 15)
            for (int32_t blue = 0; blue < 256; blue += 51)
                for (int32_t grey = 0; grey < 256; grey += 15) {
                    const auto byte = [](int32_t value) { return static_cast<uint8_t>(value); };
                    const MColor color = MColor::FromRGB(byte(red), byte(green), byte(blue), 77);
                    const MColor light = MColor::FromRGB(byte(grey), byte(255 - grey), byte(grey / 2));
                    HSL wanted = ToHSL(color);
                    wanted.lightness = ToHSL(light).lightness;
                    const MColor moved = color.WithLightnessOf(light);
                    ASSERT_NEAR(moved.red, ChannelOf(wanted, 0), 0.51) << Text(color.GetText());
                    ASSERT_NEAR(moved.green, ChannelOf(wanted, 8), 0.51) << Text(color.GetText());
                    ASSERT_NEAR(moved.blue, ChannelOf(wanted, 4), 0.51) << Text(color.GetText());
                    ASSERT_EQ(moved.alpha, 77);
                    ASSERT_EQ(color.WithLightnessOf(color), color);
                }
}

TEST(ColorTest, OperationsHaveNames) {
    EXPECT_EQ(MParseColorOp(""), MColorOp::None);
    EXPECT_EQ(MParseColorOp("alphablend"), MColorOp::Alphablend);
    EXPECT_EQ(MParseColorOp("COPY"), MColorOp::Copy);
    EXPECT_EQ(MParseColorOp("IncContrast"), MColorOp::IncContrast);
    EXPECT_EQ(static_cast<int32_t>(MParseColorOp("AddAndOverflow")), 16);
    for (int32_t i = 0; i < MColorOpCount; ++i)
        EXPECT_EQ(MParseColorOp(MGetColorOpName(static_cast<MColorOp>(i))), static_cast<MColorOp>(i));
    EXPECT_EQ(FailureOf([] { (void)MParseColorOp("Alpha blend"); }),
              "0: Invalid MColorOp identifier to parse (Alpha blend).");
}

TEST(ColorTest, FillsAndAlignmentsHaveNames) {
    EXPECT_EQ(MParseBitmapFill(""), MBitmapFill::Stretch);
    EXPECT_EQ(MParseBitmapFill("vpattern"), MBitmapFill::VPattern);
    EXPECT_EQ(Text(MGetBitmapFillName(MBitmapFill::HPattern)), "HPattern");
    EXPECT_EQ(FailureOf([] { (void)MParseBitmapFill("Tile"); }),
              "0: Invalid MBitmapFill identifier to parse (Tile).");

    EXPECT_EQ(MParseBitmapAlignment("bottom"), MBitmapAlignment::Bottom);
    EXPECT_EQ(MParseBitmapAlignment("middle"), MBitmapAlignment::Left);
    EXPECT_EQ(Text(MGetBitmapAlignmentName(MBitmapAlignment::Center)), "Center");
}
