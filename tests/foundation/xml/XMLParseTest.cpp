#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLLoadObserver.h"
#include "foundation/xml/MXMLParser.h"
#include "streams/basic/MMemoryStream.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

void Load(MXMLItem& root, std::string_view text, MXMLLoadObserver* observer = nullptr) {
    MMemoryStream stream(text.data(), static_cast<int32_t>(text.size()));
    root.Load(stream, observer);
}

/// The compact form without its header, in which attributes are sorted: one line that says what was read.
std::string Read(std::string_view text) {
    MXMLItem root;
    Load(root, text);
    MMemoryStream saved;
    root.Save(saved, true, "utf-8");
    const std::string document = MBytesOf(saved);
    return document.substr(document.find('\n') + 1);
}

TEST(XMLParseTest, ReadsElementsTextAndAttributes) {
    struct {
        const char* source;
        const char* tree;
    } const cases[] = {
        {"<a>one\n  two</a>", "<a>one two</a>"},
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
        {"< a >< b / ></ b ></a>", nullptr},
        {"<a><![CDATA[ <b> & \n]] ]]></a>", "<a>&lt;b&gt; &amp; &#10;]]</a>"},
    };
    for (const auto& c : cases) {
        if (c.tree)
            EXPECT_EQ(Read(c.source), c.tree) << c.source;
        else
            EXPECT_THROW(Read(c.source), MException) << c.source;
    }
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
        Load(root, std::string("<a v=\"") + c.source + "\">" + c.source + "</a>");
        EXPECT_EQ(Text(root.GetAttribute("v")), c.value);
        EXPECT_EQ(Text(root.GetValue()), c.value);
    }
}

TEST(XMLParseTest, TheHeaderChangesTheEncodingBehindItself) {
    const char* const header = "<?xml version=\"1.0\" encoding=\"windows-1250\"?>";
    for (const char* const between : {"\n", "", "<!-- \xC4\x8D> -->"}) {
        MXMLItem root;
        Load(root, std::string(header) + between + "<a v=\"\xE8\">\xE8</a>");
        EXPECT_TRUE(root.GetValue().IsExactly(Wide(u"\u010D"))) << between;
        EXPECT_TRUE(root.GetAttribute("v").IsExactly(Wide(u"\u010D"))) << between;
    }
    EXPECT_EQ(FailureOf([] { Read("<?xml encoding=\"klingon\"?><a/>"); }),
              "0: No codec found for encoding klingon.");
    EXPECT_EQ(Read("<?other encoding=\"klingon\"?><a/>"), "<a/>");
}

TEST(XMLParseTest, LoadingReplacesWhatTheItemHeld) {
    MXMLItem root("old");
    root.SetAttribute("gone", 1);
    root.AddSubItem("gone");
    root.SetValue("gone");
    Load(root, "<new><b/></new>");
    EXPECT_EQ(Text(root.GetName()), "new");
    EXPECT_FALSE(root.HasAttribute("gone"));
    EXPECT_TRUE(root.GetValue().IsEmpty());
    EXPECT_EQ(root.GetSubItemCount(), 1);
    EXPECT_EQ(root.GetSubItem(0)->GetDepth(), 1);
}

TEST(XMLParseTest, ALineOfAnyLengthAndManyAttributesAreRead) {
    std::string source = "<a>";
    for (int i = 0; i < 20000; ++i) source += "<file name=\"" + std::to_string(i) + "\"/>";
    source += "<many";
    for (int i = 20000; i > 0; --i) source += " a" + std::to_string(i % 5000) + "=" + std::to_string(i);
    MXMLItem root;
    Load(root, source + "/></a>");
    EXPECT_EQ(root.CountSubItems("file"), 20000);
    EXPECT_EQ(Text(root.GetSubItem(19999)->GetAttribute("name")), "19999");
    const MXMLItem* many = root.GetSubItem("many");
    EXPECT_EQ(many->GetAttributes().GetCount(), 5000);
    EXPECT_EQ(Text(many->GetAttribute("A4999")), "4999");
}

TEST(XMLParseTest, ObserversHearTheLineOfEachTag) {
    class Lines final : public MXMLLoadObserver {
    public:
        void OnItemOpened(const MXMLItem& item, int32_t line) override {
            found.emplace_back(Text(item.GetName()), line);
        }
        std::vector<std::pair<std::string, int32_t>> found;
    } lines;
    MXMLItem root;
    Load(root, "\n<a>\n text\n <b x=\"1\n2\"/><c\n/>\r\n<d/></a>", &lines);
    const std::vector<std::pair<std::string, int32_t>> expected{{"a", 2}, {"b", 4}, {"c", 5}, {"d", 7}};
    EXPECT_EQ(lines.found, expected);
}

}  // namespace
