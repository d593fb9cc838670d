#include "tests/ui/stml/STMLFixture.h"

namespace {

class MSTMLTableTest : public testing::Test {
protected:
    ~MSTMLTableTest() noexcept override = default;

    /// Widths of the cells of a row, whose tags are `td` with these attributes around a text.
    std::string Columns(std::initializer_list<std::pair<const char*, const char*>> cells,
                        const char* row = "") {
        MString text = MString("<tr ") + row + ">";
        for (const auto& [attributes, content] : cells)
            text += MString("<td fillalpha=9 ") + attributes + ">" + content + "</td>";
        MSTML document(text);
        screen.Show(document, 100);
        std::string widths;
        for (const MRect& rect : screen.fills) widths += std::to_string(rect.GetWidth()) + " ";
        return widths;
    }

    Screen screen;
};

}  // namespace

TEST_F(MSTMLTableTest, ColumnsTakeTheirWidthsAndShareTheRest) {
    EXPECT_EQ(Columns({{"", ""}, {"", ""}, {"", ""}}), "33 33 34 ");
    EXPECT_EQ(Columns({{"width=20", ""}, {"", ""}}), "24 76 ");
    EXPECT_EQ(Columns({{"width=20 padding=0 border=3", ""}, {"width=0", ""}, {"", ""}}).substr(0, 3), "26 ");
    EXPECT_EQ(Columns({{"autosize=1", "abc"}, {"", ""}, {"width=50%", ""}}), "22 39 39 ");
    EXPECT_EQ(Columns({{"width=50%", ""}, {"width=25%", ""}, {"", ""}, {"", ""}}), "50 25 12 13 ");
    EXPECT_EQ(Columns({{"width=80%", ""}, {"width=80%", ""}, {"", ""}}), "80 80 4 ");
    EXPECT_EQ(Columns({{"width=10%", "widest word"}, {"", ""}}), "40 90 ");
    EXPECT_EQ(Columns({{"", ""}, {"", ""}}, "padding=3 border=1 cellspaces=5").substr(4), "43 43 ");
    EXPECT_EQ(Columns({{"width=4294967298 padding=-3", ""}, {"width=-7", ""}}), "1048576 4 ");
    screen.sizes[static_cast<size_t>(MStyleMetric::MaxStdIconSizeX)] = 16;
    EXPECT_EQ(Columns({{"width=MaxStdIconSizeX padding=3", ""}, {"", ""}}), "22 78 ");
    screen.scale = 200;
    EXPECT_EQ(Columns({{"width=20", ""}, {"width=maxstdiconsizex", ""}, {"", ""}}), "48 24 28 ");
}

TEST_F(MSTMLTableTest, RowsAreAsHighAsTheirHighestCellOrAsTheyShallBe) {
    const int32_t line = screen.lineHeight;
    EXPECT_EQ(MSTML("<tr><td>a<p>b</td><td>c</td></tr>").Measure(screen, 100), 2 * line + 4);
    EXPECT_EQ(MSTML("<tr padding=3 border=1><td padding=5 border=2>a").Measure(screen, 100), line + 14 + 8);
    EXPECT_EQ(MSTML("<tr height=50><td>a").Measure(screen, 100), 50);
    EXPECT_EQ(MSTML("<tr height=5><td>a").Measure(screen, 100), line + 4);
    EXPECT_EQ(MSTML("<tr height=100%><td>a").Measure(screen, 100), line + 4);
    EXPECT_EQ(MSTML("<tr>").Measure(screen, 100), 0);
    // What is left of the height is shared, and cells have their content at their sides.
    MSTML document("A<tr height=50%><td padding=0 valign=bottom>B</td><td valign=center>C</td></tr>"
                   "<tr height=100%><td padding=0 fillalpha=1 valign=bottom>D</td></tr>");
    screen.Show(document, 100, 112);
    EXPECT_EQ(screen.Fills(), "0,62 100x50; ");
    const int32_t ascent = screen.fonts[0].GetAscent();
    EXPECT_EQ(screen.glyphs[1].baseline, 62 - line + ascent);
    EXPECT_EQ(screen.glyphs[2].baseline, line + (49 - line) / 2 + ascent);
    EXPECT_EQ(screen.glyphs[3].baseline, 112 - line + ascent);
}

TEST_F(MSTMLTableTest, RowsThatDoNotFitGoBeyondTheRoom) {
    MSTML document("A<tr><td padding=0>B</td></tr><tr height=100%><td padding=0>C</td></tr>");
    screen.Show(document, 100, 5);
    const int32_t ascent = screen.fonts[0].GetAscent();
    for (size_t i = 0; i < 3; ++i)
        EXPECT_EQ(screen.glyphs[i].baseline, static_cast<int32_t>(i) * screen.lineHeight + ascent);
}

TEST_F(MSTMLTableTest, ATableNeedsTheWidthByWhichEachCellHasItsOwn) {
    const auto need = [&](const char* text, int32_t width) {
        int32_t outWidth = 0;
        (void)MSTML(text).GetHeightForWidth(screen, width, outWidth);
        return outWidth;
    };
    EXPECT_EQ(need("<tr><td>abc</td><td>a</td></tr>", 500), 44);
    EXPECT_EQ(need("<tr><td width=30%>abc</td><td>a</td></tr>", 500), 74);
    EXPECT_EQ(need("<tr cellspaces=7 padding=1><td width=20>abc</td><td autosize=1>ab</td></tr>", 500),
              24 + 16 + 9);
    EXPECT_EQ(need("<tr><td>aa bb</td><td>a</td></tr>", 40), 32);
    MSTML document("<tr><td width=20%>aaaa bb</td><td>cc dddd</td></tr><p>aaaaaaaaaaaaaaaaaaaaaaaa");
    EXPECT_EQ(document.GetMinimalWidth(screen), 144);
    EXPECT_EQ(MSTML("<tr><td width=20%>aaaa bb</td><td>cc dddd</td></tr>").GetMinimalWidth(screen), 140);
    EXPECT_EQ(MSTML("<tr><td>aaaa bb</td><td autosize=1>cc</td></tr>").GetMaximalWidth(screen), 46 + 16);
}

TEST_F(MSTMLTableTest, ListsAndTablesStandInCells) {
    EXPECT_EQ(screen.Rows("a<li>one</li><li>two<li>three</li>four</li>five", 30),
              "a|  one|*|  two|     three|*  *|  four|five");
    EXPECT_EQ(screen.Rows("<tr>x<td>a<tr><td>b</td>y<td>c</td></tr>d</td></tr>e", 30),
              "a|b              c|d|e");
    // Grounds: the text's colour, which inverts, a border, and shares of it.
    MSTML document("<center invert=1>a</center><tr><td invert=1 border=5>b</td><td border=2>c");
    screen.Show(document, 100);
    EXPECT_EQ(screen.glyphs[0].color, screen.GetTextColor(0, true));
    EXPECT_EQ(screen.glyphs[1].color, screen.GetTextColor(0, true));
    EXPECT_EQ(screen.glyphs[2].color, screen.GetTextColor(0, false));
    EXPECT_EQ(screen.Fills(), "0,0 100x13; 0,13 50x27; 50,13 50x27; 51,14 48x25; ");
}
