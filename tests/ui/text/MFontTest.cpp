#include "streams/basic/MMemoryStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/ui/text/TextFixture.h"
#include "ui/text/MTextMeasure.h"

#include <cmath>
#include <limits>

namespace {

constexpr const char* BadSize = "0: Unable to accept required font size.";

/// Two characters of 3 by 2 pixels, of which "A" has the corners and "B" has none.
constexpr std::string_view BitmapFont =
    "STARTFONT 2.1\nFONT -test-Corners-Medium-R-Normal--8-80-72-72-C-40-ISO10646-1\nSIZE 8 72 72\n"
    "FONTBOUNDINGBOX 3 2 0 0\nSTARTPROPERTIES 3\nFAMILY_NAME \"Corners\"\nFONT_ASCENT 7\nFONT_DESCENT 1\n"
    "ENDPROPERTIES\nCHARS 2\n"
    "STARTCHAR A\nENCODING 65\nSWIDTH 500 0\nDWIDTH 4 0\nBBX 3 2 0 0\nBITMAP\nA0\n40\nENDCHAR\n"
    "STARTCHAR B\nENCODING 66\nSWIDTH 500 0\nDWIDTH 4 0\nBBX 0 0 0 0\nBITMAP\nENDCHAR\nENDFONT\n";

class MFontTest : public testing::Test {
protected:
    MFontTest() {
        font.LoadFromFile(SystemFont("dejavu/DejaVuSans.ttf"));
        font.SetSize(-12);
    }
    ~MFontTest() noexcept override = default;

    [[nodiscard]] std::string Draw(char32_t character) {
        return Drawing(font.GetGlyph(character).mask.get());
    }

    MFont font;
};

}  // namespace

TEST(MFontOpeningTest, WhatIsNoFontIsRefusedWithItsText) {
    std::string nameless = MReadTestFile(SystemFont("liberation/LiberationMono-Bold.ttf"));
    nameless.replace(nameless.find("name"), 4, "nbme");
    const std::pair<std::string, const char*> cases[] = {
        {std::string(200, 'x'), "0: Invalid file contents. Unknown font file format."},
        {"wOFF" + nameless.substr(4), "0: Invalid file contents. Unknown font file format."},
        {"", "0: Invalid file contents. Invalid font file format."},
        {nameless.substr(0, 1000), "0: Invalid file contents. Invalid font file format."},
        {nameless, "0: Invalid font family name."}};
    MFont font;
    for (const auto& [bytes, failure] : cases)
        EXPECT_EQ(FailureOf([&, &source = bytes] { font.Open(MakeBuffer(source)); }), failure);
    EXPECT_FALSE(font.IsOpen());
    EXPECT_EQ(FailureOf([&] { font.LoadFromFile("/missing.ttf"); }).substr(0, 5), "101: ");
}

TEST(MFontOpeningTest, StreamsAreReadFromTheirPositionAndAFailureLeavesTheFontClosed) {
    const std::string bytes = "before" + MReadTestFile(SystemFont("dejavu/DejaVuSans.ttf"));
    MFont font;
    MMemoryStream stream = MStreamOf(bytes);
    stream.Seek(6, MSeekOrigin::Begin);
    font.LoadFromStream(stream);
    font.SetSize(-12);
    EXPECT_TRUE(font.GetGlyph('A').mask);

    stream.Seek(6, MSeekOrigin::Begin);
    MFailingStream failing(&stream, 1000);
    EXPECT_EQ(FailureOf([&] { font.LoadFromStream(failing); }), "100: Injected failure.");
    EXPECT_FALSE(font.IsOpen() || font.HasGlyph('A'));
    EXPECT_EQ(Text(font.GetFamily()), "");
    EXPECT_EQ(FailureOf([&] { font.SetSize(-12); }), BadSize);
}

TEST(MFontOpeningTest, ABitmapFontHasItsOwnSizeOnly) {
    MFont font;
    font.Open(MakeBuffer(BitmapFont));
    EXPECT_EQ(FailureOf([&] { font.SetSize(-20); }), BadSize);
    EXPECT_FALSE(font.GetGlyph('A').mask);
    font.SetSize(-8);
    EXPECT_EQ(Drawing(font.GetGlyph('A').mask.get()), "# #\n # \n");
    EXPECT_EQ(font.GetGlyph('A').mask->GetRow(0)[0], 255);
    EXPECT_FALSE(font.GetGlyph('B').mask);
    EXPECT_EQ(font.GetTextWidth("BB"), 8);
    EXPECT_EQ(font.GetLineHeight(), 8);
}

TEST_F(MFontTest, SizesBelowZeroArePixelsAndOthersPoints) {
    const std::string twelve = Draw('g');
    font.SetSize(12);
    EXPECT_EQ(Draw('g'), twelve);
    font.SetSize(-24);
    EXPECT_NEAR(font.GetLineHeight(), 28, 1);
    font.SetScale(1, 0.5);
    font.SetSize(-24, -12);
    EXPECT_EQ(Draw('g'), twelve);
    font.SetScale(1, 1);
    font.SetSize(12, -24);
    EXPECT_EQ(font.GetGlyph('g').height, 10);
    EXPECT_GE(font.GetGlyph('g').width, 12);
    for (const double size : {1e9, -1e9, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(FailureOf([&] { font.SetSize(size); }), BadSize);
        EXPECT_FALSE(font.GetGlyph('A').mask) << size;
        EXPECT_EQ(font.GetLineHeight(), 1);
    }
    // The largest that is accepted: glyphs that would take too much memory are empty.
    font.SetSize(-32767);
    EXPECT_FALSE(font.GetGlyph('A').mask);
}

TEST_F(MFontTest, AMissingCharacterHasTheGlyphForThatAndASpaceNone) {
    const std::string missing = Draw(0x4E00);
    EXPECT_NE(missing, "nothing");
    for (const char32_t character : {0x10FFFD, 0x7FFFFFFF}) {
        EXPECT_EQ(Draw(character), missing);
        EXPECT_FALSE(font.HasGlyph(character));
    }
    EXPECT_NE(Draw(0x3A9), missing);
    EXPECT_TRUE(font.HasGlyph(0x3A9));
    EXPECT_FALSE(font.GetGlyph(' ').mask);
    EXPECT_GT(font.GetGlyph(' ').advance, 0);
}

TEST_F(MFontTest, GlyphsAreRenderedOnceForEachSize) {
    for (const char32_t character : {U'A', U'\u00E9', U'\u0100', U'\u03A9', U'\U0001D538'}) {
        const std::string small = Draw(character);
        EXPECT_EQ(font.GetGlyph(character).mask.get(), font.GetGlyph(character).mask.get());
        font.SetSize(-30);
        EXPECT_NE(Draw(character), small);
        font.SetSize(-12);
        EXPECT_EQ(Draw(character), small);
    }
    EXPECT_NE(Draw(0x100), Draw(0));
    const std::string upper = Draw('A') + Draw(0xE9);
    font.SetUpperCase(true);
    EXPECT_EQ(Draw('a') + Draw(0xE9), upper);
}

TEST_F(MFontTest, TextsAreMeasuredByCharacters) {
    const auto advance = [&](char32_t character) { return font.GetGlyph(character).advance; };
    const MString text = MString::Copy(u"i\U0001D538\tW");
    const int32_t second = advance('i');
    const int32_t last = second + advance(0x1D538);
    const int32_t end = last + advance('W');
    EXPECT_EQ(font.GetTextWidth(text), end);
    EXPECT_EQ(font.GetTextWidth(text, 2), advance(0xFFFD) + advance('W'));
    EXPECT_EQ(font.GetTextWidth(text, 0, 1), second);
    const std::pair<int32_t, int32_t> cases[] = {{-5, 0},       {0, 0},    {second - 1, 0}, {second, 1},
                                                 {last - 1, 1}, {last, 4}, {end - 1, 4},    {end, 5}};
    for (const auto& [x, index] : cases) EXPECT_EQ(font.GetIndexAt(text, x), index) << x;
    // Hinting has moved the first two apart and the others together.
    font.LoadFromFile(SystemFont("liberation/LiberationSans-Regular.ttf"));
    font.SetSize(-10);
    EXPECT_EQ(font.GetTextWidth("ll"), 2 * advance('l') - 1);
    EXPECT_EQ(font.GetTextWidth("os"), advance('o') + advance('s') + 1);
}

TEST_F(MFontTest, InvisibleCharactersHaveNoBoxAndNoWidth) {
    const int32_t width = font.GetTextWidth("ab");
    for (const char16_t unit : {u'\n', u'\x7F', u'\x85', u'\xAD', u'\x200B', u'\x200D', u'\x2028', u'\x2029',
                                u'\x2060', u'\xFE0F', u'\xFEFF'}) {
        const char16_t text[] = {u'a', unit, u'b', 0};
        EXPECT_EQ(font.GetTextWidth(Wide(text)), width) << int{unit};
    }
    for (const int32_t unit : {0x20, 0x7E, 0xA0, 0xAC, 0xAE, 0x2009, 0x2010, 0x2027, 0x202F, 0xFFFD})
        EXPECT_FALSE(MIsInvisible(static_cast<char32_t>(unit))) << unit;
}

TEST_F(MFontTest, SpacesAreAddedBetweenCharactersAndToLines) {
    const int32_t width = font.GetTextWidth("abc");
    const int32_t lineHeight = font.GetLineHeight();
    font.SetVerticalSpace(3);
    EXPECT_EQ(font.GetLineHeight(), lineHeight + 3);
    const std::pair<double, int32_t> cases[] = {{2, 4}, {0.49, 0}, {0.5, 2}, {-1.5, -4}};
    for (const auto& [space, added] : cases) {
        font.SetCharacterSpace(space);
        EXPECT_EQ(font.GetTextWidth("abc"), width + added) << space;
    }
    font.SetCharacterSpace(1e300);
    EXPECT_EQ(font.GetTextWidth("abc"), 1 << 30);
}
