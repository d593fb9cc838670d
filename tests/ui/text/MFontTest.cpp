#include "streams/basic/MMemoryStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MScratch.h"
#include "tests/ui/text/TextFixture.h"
#include "ui/text/MFontLibrary.h"

#include <cmath>
#include <limits>

namespace {

constexpr const char* Unknown = "0: Invalid file contents. Unknown font file format.";
constexpr const char* Invalid = "0: Invalid file contents. Invalid font file format.";
constexpr const char* Nameless = "0: Invalid font family name.";

/// Two characters of 3 by 2 pixels, of which "A" has the corners and "B" has none.
constexpr std::string_view BitmapFont = "STARTFONT 2.1\n"
                                        "FONT -test-Corners-Medium-R-Normal--8-80-72-72-C-40-ISO10646-1\n"
                                        "SIZE 8 72 72\n"
                                        "FONTBOUNDINGBOX 3 2 0 0\n"
                                        "STARTPROPERTIES 3\n"
                                        "FAMILY_NAME \"Corners\"\n"
                                        "FONT_ASCENT 7\n"
                                        "FONT_DESCENT 1\n"
                                        "ENDPROPERTIES\n"
                                        "CHARS 2\n"
                                        "STARTCHAR A\nENCODING 65\nSWIDTH 500 0\nDWIDTH 4 0\nBBX 3 2 0 0\n"
                                        "BITMAP\nA0\n40\nENDCHAR\n"
                                        "STARTCHAR B\nENCODING 66\nSWIDTH 500 0\nDWIDTH 4 0\nBBX 0 0 0 0\n"
                                        "BITMAP\nENDCHAR\n"
                                        "ENDFONT\n";

std::string Read(const char* name) {
    return MReadTestFile(SystemFont(name));
}

std::string FailureOfOpening(std::string_view bytes) {
    MFont font;
    const std::string failure = FailureOf([&] { font.Open(MakeBuffer(bytes)); });
    EXPECT_EQ(font.IsOpen(), failure == "none");
    return failure;
}

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

TEST(MFontOpeningTest, AStyleThatIsNoneOfThreeIsPartOfTheFamily) {
    const struct {
        const char* file;
        const char* family;
        uint8_t flags;
    } cases[] = {
        {"liberation/LiberationSans-Regular.ttf", "Liberation Sans", 0},
        {"liberation/LiberationSans-Bold.ttf", "Liberation Sans", MFont::Bold},
        {"liberation/LiberationSans-Italic.ttf", "Liberation Sans", MFont::Italic},
        {"liberation/LiberationSans-BoldItalic.ttf", "Liberation Sans Bold Italic",
         MFont::Bold | MFont::Italic},
        {"dejavu/DejaVuSans.ttf", "DejaVu Sans Book", 0},
    };
    for (const auto& expected : cases) {
        MFont font;
        font.LoadFromFile(SystemFont(expected.file));
        EXPECT_EQ(Text(font.GetFamily()), expected.family);
        EXPECT_EQ(font.GetFlags(), expected.flags) << expected.file;
        EXPECT_EQ(Text(font.GetPath()), Text(SystemFont(expected.file)));
    }
}

TEST(MFontOpeningTest, WhatIsNoFontIsRefusedWithItsText) {
    EXPECT_EQ(FailureOfOpening(std::string(200, 'x')), Unknown);
    EXPECT_EQ(FailureOfOpening("wOFF" + Read("dejavu/DejaVuSans.ttf").substr(4)), Unknown);
    EXPECT_EQ(FailureOfOpening(""), Invalid);
    std::string nameless = Read("liberation/LiberationMono-Bold.ttf");
    nameless.replace(nameless.find("name"), 4, "nbme");
    EXPECT_EQ(FailureOfOpening(nameless), Nameless);
    MFont font;
    EXPECT_EQ(FailureOf([&] { font.LoadFromFile("/missing.ttf"); }).substr(0, 5), "101: ");
}

TEST(MFontOpeningTest, AFontCutShortIsRefusedOrShowsWhatItHas) {
    const std::string whole = Read("liberation/LiberationSansNarrow-Bold.ttf");
    int32_t refused = 0;
    for (size_t length = 1; length < whole.size(); length = length * 9 / 8 + 1) {
        MFont font;
        const std::string failure = FailureOf([&] {
            font.Open(MakeBuffer(whole.substr(0, length)));
            font.SetSize(-20);
            for (char32_t character = 0; character < 300; ++character) (void)font.GetGlyph(character);
        });
        if (failure != "none") ++refused;
        EXPECT_TRUE(failure == "none" || failure == Unknown || failure == Invalid || failure == Nameless)
            << length << " bytes: " << failure;
    }
    EXPECT_GT(refused, 10);
}

TEST(MFontOpeningTest, AFailureLeavesTheFontClosed) {
    MFont font;
    font.LoadFromFile(SystemFont("dejavu/DejaVuSans.ttf"));
    MMemoryStream bytes(BitmapFont.data() + 10, 200);
    EXPECT_EQ(FailureOf([&] { font.LoadFromStream(bytes); }), Unknown);
    EXPECT_FALSE(font.IsOpen());
    EXPECT_EQ(Text(font.GetFamily()), "");
    EXPECT_EQ(FailureOf([&] { font.SetSize(-12); }), "0: Unable to accept required font size.");

    const std::string whole = Read("dejavu/DejaVuSans.ttf");
    MMemoryStream source(whole.data(), static_cast<int32_t>(whole.size()));
    MFailingStream failing(&source, 1000);
    EXPECT_EQ(FailureOf([&] { font.LoadFromStream(failing); }), "100: Injected failure.");
    EXPECT_FALSE(font.IsOpen());
}

TEST(MFontOpeningTest, AStreamIsReadFromItsPositionAndNotNeededAfterwards) {
    MFont font;
    {
        const std::string bytes = "before" + Read("dejavu/DejaVuSans.ttf");
        MMemoryStream stream(bytes.data(), static_cast<int32_t>(bytes.size()));
        stream.Seek(6, MSeekOrigin::Begin);
        font.LoadFromStream(stream);
    }
    font.SetSize(-12);
    EXPECT_TRUE(font.GetGlyph('A').mask);
    EXPECT_EQ(Text(font.GetPath()), "");
}

TEST(MFontOpeningTest, ABitmapFontHasItsOwnSizeOnly) {
    MFont font;
    font.Open(MakeBuffer(BitmapFont));
    EXPECT_EQ(FailureOf([&] { font.SetSize(-20); }), "0: Unable to accept required font size.");
    EXPECT_EQ(Drawing(font.GetGlyph('A').mask.get()), "nothing");
    font.SetSize(-8);
    EXPECT_EQ(Drawing(font.GetGlyph('A').mask.get()), "# #\n # \n");
    EXPECT_EQ(font.GetGlyph('A').mask->GetRow(0)[0], 255);
    EXPECT_EQ(Drawing(font.GetGlyph('B').mask.get()), "nothing");
    EXPECT_EQ(font.GetGlyph('B').advance, 4);
    EXPECT_EQ(font.GetLineHeight(), 8);
}

TEST_F(MFontTest, SizesBelowZeroArePixelsAndOthersPoints) {
    const std::string twelve = Draw('g');
    font.SetSize(12);
    EXPECT_EQ(Draw('g'), twelve);
    font.SetSize(-24);
    EXPECT_NE(Draw('g'), twelve);
    EXPECT_NEAR(font.GetLineHeight(), 28, 1);
    font.SetScale(1, 0.5);
    font.SetSize(-24, -12);
    EXPECT_EQ(Draw('g'), twelve);
    font.SetScale(1, 1);
    font.SetSize(12, -24);
    EXPECT_EQ(font.GetGlyph('g').height, 10);
    EXPECT_GE(font.GetGlyph('g').width, 12);
}

TEST_F(MFontTest, SizesThatCannotBeAreRefused) {
    for (const double size : {1e9, -1e9, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(FailureOf([&] { font.SetSize(size); }), "0: Unable to accept required font size.");
        EXPECT_FALSE(font.GetGlyph('A').mask) << size;
        EXPECT_EQ(font.GetLineHeight(), 1);
    }
    // The largest that is accepted: glyphs that would take too much memory are empty.
    font.SetSize(-32767);
    EXPECT_FALSE(font.GetGlyph('A').mask);
    EXPECT_FALSE(font.GetGlyph(0x3A9).mask);
}

TEST_F(MFontTest, AGlyphKnowsWhereItStands) {
    EXPECT_EQ(Draw('L'), ".#     \n"
                         ".#     \n"
                         ".#     \n"
                         ".#     \n"
                         ".#     \n"
                         ".#     \n"
                         ".#     \n"
                         ".#.....\n"
                         ".#####.\n");
    const MGlyph& glyph = font.GetGlyph('L');
    EXPECT_EQ(glyph.width, 7);
    EXPECT_EQ(glyph.height, 9);
    EXPECT_EQ(glyph.top, 9);
    EXPECT_EQ(glyph.left, 0);
    EXPECT_EQ(glyph.advance, 6);
    EXPECT_LT(font.GetGlyph('g').top, font.GetGlyph('g').height);
}

TEST_F(MFontTest, ASpaceHasAnAdvanceAndNoMask) {
    EXPECT_FALSE(font.GetGlyph(' ').mask);
    EXPECT_GT(font.GetGlyph(' ').advance, 0);
    EXPECT_EQ(font.GetGlyph(' ').width, 0);
}

TEST_F(MFontTest, AMissingCharacterHasTheGlyphForThat) {
    const std::string missing = Draw(0x4E00);
    EXPECT_NE(missing, "nothing");
    EXPECT_EQ(Draw(0x10FFFD), missing);
    EXPECT_EQ(Draw(0x7FFFFFFF), missing);
    EXPECT_NE(Draw(0x3A9), missing);
}

TEST_F(MFontTest, GlyphsAreRenderedOnceForEachSize) {
    for (const char32_t character : {U'A', U'\u00E9', U'\u0100', U'\u03A9', U'\U0001D538'}) {
        const MAlphaMask* mask = font.GetGlyph(character).mask.get();
        EXPECT_EQ(font.GetGlyph(character).mask.get(), mask);
        const std::string small = Drawing(mask);
        font.SetSize(-30);
        EXPECT_NE(Draw(character), small);
        font.SetSize(-12);
        EXPECT_EQ(Draw(character), small);
    }
    EXPECT_NE(Draw(0x100), Draw(0));
}

TEST_F(MFontTest, UpperCaseChangesLettersOfASCIIOnly) {
    const std::string upper = Draw('A');
    const std::string lower = Draw(0xE9);
    font.SetUpperCase(true);
    EXPECT_EQ(Draw('a'), upper);
    EXPECT_EQ(Draw(0xE9), lower);
    font.SetUpperCase(false);
    EXPECT_NE(Draw('a'), upper);
}

TEST_F(MFontTest, ASurrogatePairIsOneGlyph) {
    const MString pair = MString::Copy(u"\U0001D538");
    EXPECT_EQ(font.GetTextWidth(pair), font.GetGlyph(0x1D538).advance);
    EXPECT_NE(Draw(0x1D538), Draw(0x10FFFD));
    const char16_t lone[] = {0xD835, u'x', 0xDD38, 0};
    EXPECT_EQ(font.GetTextWidth(MString::Copy(lone)),
              2 * font.GetGlyph(0xFFFD).advance + font.GetGlyph('x').advance);
    EXPECT_EQ(font.GetTextWidth(pair, 1), font.GetGlyph(0xFFFD).advance);
}

TEST_F(MFontTest, CharactersAreFoundByTheirPixel) {
    const MString text = MString::Copy(u"i\U0001D538\tW");
    const int32_t second = font.GetAdvance('i');
    const int32_t last = second + font.GetAdvance(0x1D538);
    const int32_t end = last + font.GetAdvance('W');
    EXPECT_EQ(font.GetTextWidth(text), end);
    const std::pair<int32_t, int32_t> cases[] = {{-5, 0},       {0, 0},    {second - 1, 0}, {second, 1},
                                                 {last - 1, 1}, {last, 4}, {end - 1, 4},    {end, 5}};
    for (const auto& [x, index] : cases) EXPECT_EQ(font.GetIndexAt(text, x), index) << x;
}

TEST_F(MFontTest, SpacesAreAddedToAdvancesAndLines) {
    const int32_t width = font.GetTextWidth("abc");
    const int32_t lineHeight = font.GetLineHeight();
    font.SetCharacterSpace(2);
    font.SetVerticalSpace(3);
    EXPECT_EQ(font.GetTextWidth("abc"), width + 6);
    EXPECT_EQ(font.GetLineHeight(), lineHeight + 3);
    font.SetCharacterSpace(0x7FFFFFFF);
    EXPECT_EQ(font.GetTextWidth("abc"), 1 << 30);
}
