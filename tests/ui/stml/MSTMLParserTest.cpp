#include "ui/stml/MSTMLParser.h"
#include "tests/ui/stml/STMLFixture.h"

namespace {

class MSTMLParserTest : public testing::Test {
protected:
    ~MSTMLParserTest() noexcept override = default;

    static MString Repeat(const char* text, int32_t count) {
        MString all;
        for (int32_t i = 0; i < count; ++i) all += text;
        return all;
    }

    Screen screen;
};

}  // namespace

TEST_F(MSTMLParserTest, TagsChangeTheLookUntilTheyEnd) {
    const std::pair<const char*, const char*> cases[] = {
        {"a<b>b</b>c", "[0 0]a[1 0]b[0 0]c"},
        {"</b></cred></alpha></ci></tr></td></li></p>a<b>b", "[0 0]a[1 0]b"},
        {"<b><i>a</s>b</i>c", "[2 0]a[1 0]b[0 0]c"},
        {"<l1>a<l2>b<l3>c<l4>d<normal>e<s>f", "[4 0]a[5 0]b[6 0]c[7 0]d[0 0]e[3 0]f"},
        {"<cred>a<cgreen>b<cblue>c<cd>d", "[0 2]a[0 3]b[0 4]c[0 0]d"},
        {"<ci>a<ci/>b</ci>c<cred><ci>d", "[0 0i]ab[0 0]c[0 2i]d"},
        {"<center invert=1><ci>a", "[0 0]a"},
        {"<alpha value=100>a<alpha>b<alpha value=999>c</alpha><alpha value=x>d", "[0 0/100]a[0 0]bc[0 0/0]d"},
        {"<header1>a</header1>b<header2>c", "[4 0]a[0 0]b[5 0]c"},
        {"<B>a</B><unknown x=1>b", "[0 0]ab"},
        {"a &lt;b&gt;", "[0 0]a<b>"},
        {"<b>a<i", "[1 0]a"},
        {"<b>a</b", "[1 0]a"},
        {"<b>a<i x>b", "[1 0]a"},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(screen.Looks(text), expected) << text;
}

TEST_F(MSTMLParserTest, ATagSetStandsForItsTags) {
    const std::pair<const char*, const char*> cases[] = {
        {"<tagset name=\"name\"><b><cred></tagset><name>a</name>b", "[1 2]a[0 0]b"},
        {"<tagset name=n><b></tagset><tagset name=m><n><cred></tagset><m>a</m>b", "[1 2]a[0 0]b"},
        {"<tagset name=n><b></tagset><tagset name=n><i></tagset><n>a</n>b</n>c", "[2 0]a[0 0]bc"},
        {"<tagset name=n><b></tagset><N>a<n>b", "[0 0]a[1 0]b"},
        {"<tagset name=b><i></tagset><b>a", "[1 0]a"},
        {"<tagset name=half><alpha value=7><cred></tagset><half value=9>a</half>b<half>c",
         "[0 2/9]a[0 0]b[0 2/7]c"},
        {"<tagset name=n><b>a</tagset></n>b<tagset name=m><i>", "[0 0]ab"},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(screen.Looks(text), expected) << text;
    MSTML lines("<tagset name=sep><rectangle color=red/></tagset><sep/><sep/>");
    screen.Show(lines, 100);
    EXPECT_EQ(screen.fills.size(), 2u);
}

TEST_F(MSTMLParserTest, EndlessSetsAndDeepRowsEnd) {
    const std::string one =
        screen.Looks("<tagset name=x><b><x><y></tagset><tagset name=y><x></tagset><x>a</x>b");
    EXPECT_EQ(one.substr(0, 6), "[1 0]a");
    MString sets = "<tagset name=a0>" + Repeat("<rectangle color=red/>", 100) + "</tagset>";
    const std::pair<const char*, const char*> uses[] = {{"a1", "<a0/>"}, {"a2", "<a1/>"}, {"a3", "<a2/>"}};
    for (const auto& [set, used] : uses)
        sets += MString("<tagset name=") + set + ">" + Repeat(used, 100) + "</tagset>";
    MSTML many(sets + "<a3/>");
    screen.Show(many, 900);
    EXPECT_GT(screen.fills.size(), 3000u);
    EXPECT_LT(screen.fills.size(), 50000u);

    const MString deep = Repeat("<tr><td autosize=1>a<td>", 10000) + "b" + Repeat("</td></tr>", 10000) + "c";
    const std::string rows = screen.Rows(deep, 150);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), 'a'), MSTMLParser::MaximumRowDepth);
    EXPECT_EQ(std::count(rows.begin(), rows.end(), 'b'), 0);
    EXPECT_EQ(rows.back(), 'c');
    EXPECT_GT(MSTML(Repeat("<li>", 10000)).GetMinimalWidth(screen), 0);
    EXPECT_EQ(screen.Looks(Repeat("<b><cred>", 100000) + "a"), "[1 2]a");
}

TEST_F(MSTMLParserTest, HugeTextsAndNumbersStayInBounds) {
    MString word;
    word.Append(MChar('w'), 1 << 20);
    MSTML document(word);
    for (const int32_t width : {0, 1, 700, 701})
        EXPECT_EQ(document.Measure(screen, width),
                  screen.lineHeight * (((1 << 20) - 1) / std::max(1, width / 6) + 1));
    EXPECT_EQ(document.GetMinimalWidth(screen), 6 << 20);
    // A thousand wide cells, and what has no sense.
    EXPECT_GT(MSTML("<tr>" + Repeat("<td width=1048576>a</td>", 1000)).GetMinimalWidth(screen), 1 << 29);
    for (
        const char* text :
        {"<tr padding=99999999999999999999 border=-1 cellspaces=2147483648 height=2147483648%><td width=999999999%>a",
         "<rectangle width=99999% height=99999999/>", "<hline size=-5 hspace=99999 vspace=-1/>",
         "<indicator value=nan min=inf max=-inf middle=1e999/>", "<td>a</td>b", "<li size=99999999999>"}) {
        MSTML odd(text);
        EXPECT_GE(odd.Measure(screen, 100), 0) << text;
        EXPECT_GE(odd.GetOptimalWidth(screen, 300), 0) << text;
        screen.Show(odd, 100);
    }
}
