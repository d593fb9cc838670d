#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLLoadObserver.h"
#include "foundation/xml/MXMLParser.h"
#include "streams/basic/MMemoryStream.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

/// What was read on one line, with the attributes sorted. What the item held before is gone.
std::string Read(const std::string& text) {
    MXMLItem root("old");
    root.SetAttribute("gone", 1);
    root.AddSubItem("gone");
    root.SetValue("gone");
    MLoadXML(root, text);
    return MSaveXML(root);
}

TEST(XMLParseTest, ReadsElementsTextAndAttributes) {
    struct {
        const char* source;
        const char* tree;
    } const cases[] = {{"<a>one\n  two</a>", "<a>one two</a>"},
                       {"<a>x</a>y", "<a>x</a>"},
                       {"<a>one  two</a>", "<a>one  two</a>"},
                       {"<a>one<!-- > -- \n -->two</a>", "<a>one two</a>"},
                       {"<a>x<b/>y</a>", "<a>x y<b/></a>"},
                       {"<a\n  z = \"1\"\n  b=\"two\n   words\"\n/>", "<a b=\"two    words\" z=\"1\"/>"},
                       {"<a b=c/>", "<a b=\"c\"/>"},
                       {"<a b=c/d e=f></a>", "<a b=\"c/d\" e=\"f\"/>"},
                       {"<a b=\"1\" B=\"2\" b=\"3\"/>", "<a b=\"3\"/>"},
                       {"<a b=\"\"/>", "<a b=\"\"/>"},
                       {"<?xml version=\"1.0\"?><!DOCTYPE a><?style x=y?><a/>", "<a/>"},
                       {"\n\xEF\xBB\xBF\n<a></A>", "<a/>"},
                       {"<a><![CDATA[ <b> & \n]] ]]></a>", "<a>&lt;b&gt; &amp; &#10;]]</a>"}};
    for (const auto& c : cases) EXPECT_EQ(Read(c.source), c.tree) << c.source;
    EXPECT_THROW(Read("< a >< b / ></ b ></a>"), MException);
}

TEST(XMLParseTest, EntitiesAreReplacedOnceAndUnknownOnesStay) {
    struct {
        const char* source;
        const char* value;
    } const cases[] = {{"&lt;&GT;&amp;&apos;&quot;", "<>&'\""},
                       {"&AMP;", "&"},
                       {"&unknown;", "&unknown;"},
                       {"&amp;lt;", "&lt;"},
                       {"a&#10;b", "a\nb"},
                       {"&amp", "&amp"},
                       {"&&amp;&", "&&&"},
                       {"&#13;", "&#13;"}};
    for (const auto& c : cases) {
        MXMLItem root;
        MLoadXML(root, std::string("<a v=\"") + c.source + "\">" + c.source + "</a>");
        EXPECT_EQ(Text(root.GetAttribute("v")), c.value);
        EXPECT_EQ(Text(root.GetValue()), c.value);
    }
}

TEST(XMLParseTest, TheHeaderChangesTheEncodingBehindItself) {
    const char* const header = "<?xml version=\"1.0\" encoding=\"windows-1250\"?>";
    for (const char* const between : {"\n", "", "<!-- \xC4\x8D> -->"}) {
        MXMLItem root;
        MLoadXML(root, std::string(header) + between + "<a v=\"\xE8\">\xE8</a>");
        EXPECT_TRUE(root.GetValue().IsExactly(Wide(u"\u010D"))) << between;
        EXPECT_TRUE(root.GetAttribute("v").IsExactly(Wide(u"\u010D"))) << between;
    }
    EXPECT_EQ(FailureOf([] { Read("<?xml encoding=\"klingon\"?><a/>"); }),
              "0: No codec found for encoding klingon.");
    EXPECT_EQ(Read("<?other encoding=\"klingon\"?><a/>"), "<a/>");
}

TEST(XMLParseTest, ObserversHearTheLineOfEachTag) {
    struct Lines final : MXMLLoadObserver {
        void OnItemOpened(const MXMLItem& item, int32_t line) override {
            found += Text(item.GetName()) + std::to_string(line);
        }
        std::string found;
    } lines;
    MXMLItem root;
    const std::string document = "\n<a>\n text\n <b x=\"1\n2\"/><c\n/>\r\n<d/></a>";
    MMemoryStream stream = MStreamOf(document);
    root.Load(stream, &lines);
    EXPECT_EQ(lines.found, "a2b4c5d7");
}

std::string FailureOfLoading(const std::string& text) {
    return FailureOf([&] {
        MXMLItem root;
        MLoadXML(root, text);
    });
}

TEST(XMLParseTest, EachFaultHasItsText) {
    struct {
        const char* source;
        const char* detail;
    } const cases[] = {{"<>", "No element name found."},
                       {"<=a>", "No element name found."},
                       {"<a \"x\">", "Special character found where attribute expected."},
                       {"<a b=>", "Special character found where attribute expected."},
                       {"<a b c=d>", "Invalid character found where attribute expected."},
                       {"<a/b>", "Invalid element finishing sequence."},
                       {"<a></a b>", "Invalid closing element syntax."},
                       {"<a></b>", "Invalid closing element name."},
                       {"<a><![DATA[x]]></a>", "Invalid special element sequence."},
                       {"<a>text", "No ending delimiter found."},
                       {"<a b=\"c>", "No ending delimiter found."},
                       {"<!-- -- >", "No ending delimiter found."}};
    for (const auto& c : cases)
        EXPECT_EQ(FailureOfLoading(c.source), std::string("100: Invalid file contents. ") + c.detail)
            << c.source;
    EXPECT_EQ(FailureOfLoading("text<a/>"), "0: Text outside of any element.");
    EXPECT_EQ(FailureOfLoading("<![CDATA[x]]>"), "0: Text outside of any element.");
    for (const char* empty : {"", " \n ", "<!-- only -->", "<?xml version=\"1.0\"?>\n"})
        EXPECT_EQ(FailureOfLoading(empty), "0: The XML does not contain any elements.") << empty;
}

TEST(XMLParseTest, EveryTruncationRaises) {
    const std::string document =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE a>\n<a b=\"c &amp; d\" e=f>\n"
        "<!-- note -->text \xC4\x8D<![CDATA[<raw>]]><b\n/>more</a>";
    for (size_t size = 0; size < document.size(); ++size)
        EXPECT_NE(FailureOfLoading(document.substr(0, size)), "none") << size;
    EXPECT_EQ(FailureOfLoading(document), "none");
}

TEST(XMLParseTest, NestingIsBoundedAndTheParserTellsTheLine) {
    for (const int32_t excess : {0, 1, 100'000}) {
        std::string document;
        const int32_t levels = MLibraryInternals::MXMLParser::MaximumDepth + excess;
        for (int32_t i = 0; i < levels; ++i) document += "<a>";
        for (int32_t i = 0; i < levels; ++i) document += "</a>";
        EXPECT_EQ(FailureOfLoading(document),
                  excess == 0 ? "none" : "100: Invalid file contents. Elements are nested too deeply.");
    }
    const std::string document = "<a>\n<b/>\n<c></d>\n</a>";
    MXMLItem root;
    MMemoryStream stream = MStreamOf(document);
    MLibraryInternals::MXMLParser parser(root);
    EXPECT_THROW(parser.ParseDocument(stream), MException);
    EXPECT_EQ(parser.GetLine(), 3);
    EXPECT_EQ(root.GetSubItemCount(), 2);
}

}  // namespace
