#include "ui/stml/MSTMLParagraph.h"
#include "tests/ui/stml/STMLFixture.h"

namespace {

class MSTMLParagraphTest : public testing::Test {
protected:
    ~MSTMLParagraphTest() noexcept override = default;

    int32_t CountLines(const MString& text, int32_t width = 900) {
        return MSTML(text).Measure(screen, width) / screen.lineHeight;
    }

    Screen screen;
};

}  // namespace

TEST_F(MSTMLParagraphTest, LinesBreakBetweenWordsAndOnlyThenInThem) {
    ASSERT_EQ(screen.advance, 6);
    const std::tuple<MString, int32_t, const char*> cases[] = {
        {"one two three", 7, "one two|three"},
        {"one two three", 6, "one|two|three"},
        {"one two three", 30, "one two three"},
        {"one  two", 4, "one|two"},
        {"one  two", 5, "one|two"},
        {"one   two ", 3, "one|two"},
        {"abcdefghij", 4, "abcd|efgh|ij"},
        {"ab cdefghij k", 4, "ab|cdef|ghij|k"},
        {"a bcd", 0, "a|b|c|d"},
        {" \t one", 7, "one"},
        {"one\n   two", 20, "one two"},
        {"one t<b>w</b><i>o</i> th<b>ree</b>", 7, "one two|three"},
        {"<b> one</b><i> two</i>", 20, "one two"},
        {"<left singleline=1>one two</left>x", 3, "one two|x"},
        {"one<p>two<p/><justify>three", 20, "one|two|three"},
        {"<![CDATA[one two\nthree]]>", 20, "one two|three"},
        {Wide(u"o\xADn\x200B\x65 \xA0two"), 4, "one| two"},
        // A blank is put before an object, which is no place to break at.
        {"one<img icon=add/>two", 20, "one *two"},
        {"one <img icon=add/><img icon=add/> two", 5, "one|**|two"},
        {"<img icon=add/><img icon=add/>", 1, "*|*"},
        {"one <img icon=add/> <i> two", 6, "one *|two"},
        {"a\tb", 20, "a b"},
    };
    for (const auto& [text, columns, expected] : cases)
        EXPECT_EQ(screen.Rows(text, columns), expected) << Text(text) << " in " << columns;
}

TEST_F(MSTMLParagraphTest, APairIsOneCharacterAndAnEmptyLineHasTheHeightOfItsFont) {
    screen.fonts[3].SetSize(-40);
    EXPECT_EQ(MSTML(MString()).Measure(screen, 100), 0);
    EXPECT_EQ(MSTML(" \n <unknown> ").Measure(screen, 100), 0);
    EXPECT_EQ(CountLines("<justify><s/></justify>"), 1);
    EXPECT_EQ(CountLines("a<p/><p>b"), 3);
    EXPECT_EQ(CountLines("<![CDATA[a\n\n\nb\n]]>"), 4);
    EXPECT_EQ(CountLines("a<header1>b</header1>c"), 4);
    EXPECT_EQ(CountLines(Wide(u"\xD835\xDD38\xD835\xDD38\xD835 \xDD38"), 12), 3);
    EXPECT_EQ(CountLines(Wide(u"\xD835\xDD38\xD835\xDD38"), 6), 2);
    // Ideographs are words by themselves, a mark is a part of the one that it stands on.
    EXPECT_EQ(screen.Rows(Wide(u"one two\x4E16\x754C t"), 8), "one two|  t");
    EXPECT_EQ(screen.Rows(Wide(u"one\x4E16\x754C\x754C <img icon=add/>t"), 5), "one|  *t");
    EXPECT_EQ(MSTML(Wide(u"ab\x4E16\x754C\x3002\x63")).GetMinimalWidth(screen), 12);
    EXPECT_EQ(CountLines(Wide(u"ae\x301"), 12), 1);
    EXPECT_EQ(CountLines(Wide(u"\x4E16\x3002\x200B\x4E16\x3002"), 0), 4);
    // A line is as high as the largest that stands in it, and no higher for what did not fit.
    EXPECT_EQ(MSTML("a <s>b</s> c").Measure(screen, 900),
              screen.fonts[3].GetAscent() + screen.fonts[3].GetDescent());
    EXPECT_GT(MSTML("aaa <s>b</s>").Measure(screen, 36), screen.lineHeight + 40);
    MBitmap tall(12, 30);
    MSTML document("aa <img number=0/> b");
    (void)document.AddImage(tall);
    EXPECT_EQ(document.Measure(screen, 24), screen.lineHeight + 30 + screen.fonts[0].GetDescent());
    EXPECT_EQ(document.Measure(screen, 90), 30 + screen.fonts[0].GetDescent());
}

TEST_F(MSTMLParagraphTest, EachAlignmentHasItsEdge) {
    EXPECT_EQ(screen.Places("<center>ab", 31), "a10 b16 ");
    EXPECT_EQ(screen.Places("<right>ab", 31), "a19 b25 ");
    EXPECT_EQ(screen.Places("<right>aa  bb", 30), "a18 a24 b18 b24 ");
    EXPECT_EQ(screen.Places(Wide(u"<right>aa \x4E16"), 21), "a9 a15 ");
    EXPECT_EQ(screen.Places("<right singleline=1>abcd", 10), "a0 b6 c12 d18 ");
    EXPECT_EQ(screen.Places("<right>a</right>b<left>c", 31), "a25 b25 c0 ");
    const std::pair<uint8_t, int32_t> tops[] = {
        {0, 0}, {MSTMLParagraph::Middle, 37}, {MSTMLParagraph::Bottom, 74}};
    for (const auto& [flags, top] : tops) {
        MSTML document;
        document.SetDefaultFlags(flags | MSTMLParagraph::Center);
        document.Parse("a<p>b");
        screen.Show(document, 31, 100);
        EXPECT_EQ(screen.glyphs[0].baseline, top + screen.fonts[0].GetAscent());
        EXPECT_EQ(screen.glyphs[1].x, 13);
    }
}

TEST_F(MSTMLParagraphTest, JustifiedLinesReachTheEdge) {
    // Of 7 pixels each of 7 gaps takes one; of 9 the two spaces take one more; the last line stays.
    EXPECT_EQ(screen.Places("<justify>aa bb cc ddddd", 55), "a0 a7 b21 b28 c42 c49 d0 d6 d12 d18 d24 ");
    EXPECT_EQ(screen.Places("<justify>aa bb cc ddddd", 57), "a0 a7 b22 b29 c44 c51 d0 d6 d12 d18 d24 ");
    // What cannot be divided is taken by the later space.
    EXPECT_EQ(screen.Places("<justify>a b c dddd", 33), "a0 b13 c27 d0 d6 d12 d18 ");
    EXPECT_EQ(screen.Places("<justify>abcd ef", 27), "a0 b7 c14 d21 e0 f6 ");
    EXPECT_EQ(screen.Places("<justify>abcd ef", 26), "a0 b6 c13 d20 e0 f6 ");
    EXPECT_EQ(screen.Places("<justify>a <img icon=add/> bbbb", 33), "a0 *12 b0 b6 b12 b18 ");
    EXPECT_EQ(screen.Places("<justify><![CDATA[a b\nc]]>", 33), "a0 b12 c0 ");
    // Nor what is followed by blanks that do not fit.
    EXPECT_EQ(screen.Places("<justify><![CDATA[a b  \na b]]> ", 19), "a0 b12 a0 b12 ");
    // A mark keeps its place at its letter.
    EXPECT_EQ(screen.Places(Wide(u"<justify>aa\x301 bb ccccc"), 40), "a0 a7 b27 b34 c0 c6 c12 c18 c24 ");
}

TEST_F(MSTMLParagraphTest, ObjectsKeepTheirSizesAndSides) {
    const std::tuple<const char*, const char*> cases[] = {
        {"<rectangle width=20 height=4 color=red/>", "0,0 20x4; "},
        {"<rectangle width=50% height=4 color=FF000080 bordercolor=00FF00FF/>", "0,0 50x4; 0,0 50x4; "},
        {"<rectangle width=5 height=5 color=FF000000/>", ""},
        {"<rectangle color=oops bordercolor=9/>", ""},
        {"A<rectangle width=6 height=4 color=red/>", "12,0 6x4; "},
        {"A<rectangle width=6 height=4 color=red valign=bottom/>", "12,9 6x4; "},
        {"A<rectangle width=6 height=4 color=red valign=CENTER/>", "12,4 6x4; "},
        {"A<rectangle width=6 height=100% color=red/>", "12,0 6x13; "},
        {"<hline/>", "6,6 88x1; "},
        {"<hline size=3 hspace=10 vspace=0 width=60/>", "10,0 40x3; "},
        {"<indicator width=22 height=6 value=0.5/>", "0,0 22x6; 1,1 10x4; "},
        {"<indicator width=20 height=6 value=-1 min=-1 middle=0 bordercolor=00000000/>", "0,0 10x6; "},
        {"<indicator width=20 height=6 value=9 max=0 bordercolor=00000000/>", "0,0 0x6; "},
        {"<img number=7/><img icon=none/><img bitmap=yes/><img id=-1/>", ""},
    };
    ASSERT_EQ(screen.lineHeight, 13);
    for (const auto& [text, expected] : cases) {
        MSTML document(text);
        screen.Show(document, 100);
        EXPECT_EQ(screen.Fills(), expected) << text;
    }
}
