#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLLoadObserver.h"
#include "foundation/xml/MXMLParser.h"
#include "streams/basic/MMemoryStream.h"

#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <functional>
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
std::string FailureOfLoading(const std::string& text) {
    return FailureOf([&] { Read(text); });
}

std::string Saved(const MXMLItem& root, bool isCompact, const char* encoding = "utf-8") {
    MMemoryStream stream;
    root.Save(stream, isCompact, encoding);
    return MBytesOf(stream);
}

TEST(XMLDocumentTest, ReadsElementsTextAndAttributes) {
    const std::pair<const char*, const char*> cases[] = {
        {"<a>one\n  two</a>", "<a>one two</a>"},
        {"<a>x</a>y", "<a>x</a>"},
        {"<a>one  two</a>", "<a>one  two</a>"},
        {"<a>one<!-- > -- \n -->two</a>", "<a>one two</a>"},
        {"<a>x<b/>y</a>", "<a>x y<b/></a>"},
        {"<a\n  z = \"1\"\n  b=\"two\n   words\"\n/>", "<a b=\"two    words\" z=\"1\"/>"},
        {"<a b=c/>", "<a b=\"c\"/>"},
        {"<a b=c/d e=f></a>", "<a b=\"c/d\" e=\"f\"/>"},
        {"<a b=\"1\" B=\"2\" b=\"3\"/>", "<a b=\"3\"/>"},
        {"<a b=0 b=1 b=2 b=3 b=4 b=5 b=6 b=7 b=8 b=9 b=A b=B b=C b=D b=E b=F/>", "<a b=\"F\"/>"},
        {"<a b=\"\"/>", "<a b=\"\"/>"},
        {"<?xml version=\"1.0\"?><!DOCTYPE a><?style x=y?><a/>", "<a/>"},
        {"\n\xEF\xBB\xBF\n<a></A>", "<a/>"},
        {"<a><![CDATA[ <b> & \n]] ]]></a>", "<a>&lt;b&gt; &amp; &#10;]]</a>"}};
    for (const auto& [source, tree] : cases) EXPECT_EQ(Read(source), tree) << source;
    EXPECT_THROW(Read("< a >< b / ></ b ></a>"), MException);
}

TEST(XMLDocumentTest, EntitiesAreReplacedOnceAndUnknownOnesStay) {
    const std::pair<const char*, const char*> cases[] = {{"&lt;&GT;&amp;&apos;&quot;", "<>&'\""},
                                                         {"&unknown;", "&unknown;"},
                                                         {"&amp;lt;", "&lt;"},
                                                         {"a&#10;b", "a\nb"},
                                                         {"&amp", "&amp"},
                                                         {"&&amp;&", "&&&"},
                                                         {"&#13;", "&#13;"}};
    for (const auto& [source, value] : cases) {
        MXMLItem root;
        MLoadXML(root, std::string("<a v=\"") + source + "\">" + source + "</a>");
        EXPECT_EQ(Text(root.GetAttribute("v")), value);
        EXPECT_EQ(Text(root.GetValue()), value);
    }
}

TEST(XMLDocumentTest, TheHeaderChangesTheEncodingBehindItself) {
    const char* const header = "<?xml version=\"1.0\" encoding=\"windows-1250\"?>";
    for (const char* const between : {"\n", "", "<!-- \xC4\x8D> -->"}) {
        MXMLItem root;
        MLoadXML(root, std::string(header) + between + "<a v=\"\xE8\">\xE8</a>");
        EXPECT_TRUE(root.GetValue().IsExactly(Wide(u"\u010D"))) << between;
        EXPECT_TRUE(root.GetAttribute("v").IsExactly(Wide(u"\u010D"))) << between;
    }
    EXPECT_EQ(FailureOfLoading("<?xml encoding=\"klingon\"?><a/>"),
              "0: No codec found for encoding klingon.");
    EXPECT_EQ(Read("<?other encoding=\"klingon\"?><a/>"), "<a/>");
}

TEST(XMLDocumentTest, ObserversHearTheLineOfEachTag) {
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

TEST(XMLDocumentTest, EachFaultHasItsText) {
    const std::pair<const char*, const char*> cases[] = {
        {"<>", "No element name found."},
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
    for (const auto& [source, detail] : cases)
        EXPECT_EQ(FailureOfLoading(source), std::string("100: Invalid file contents. ") + detail) << source;
    EXPECT_EQ(FailureOfLoading("text<a/>"), "0: Text outside of any element.");
    EXPECT_EQ(FailureOfLoading("<![CDATA[x]]>"), "0: Text outside of any element.");
    for (const char* empty : {"", " \n ", "<!-- only -->", "<?xml version=\"1.0\"?>\n"})
        EXPECT_EQ(FailureOfLoading(empty), "0: The XML does not contain any elements.") << empty;
}

TEST(XMLDocumentTest, EveryTruncationRaises) {
    const std::string document =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE a>\n<a b=\"c &amp; d\" e=f>\n"
        "<!-- note -->text \xC4\x8D<![CDATA[<raw>]]><b\n/>more</a>";
    for (size_t size = 0; size < document.size(); ++size)
        EXPECT_NE(FailureOfLoading(document.substr(0, size)), "none") << size;
    EXPECT_EQ(FailureOfLoading(document), "none");
}

TEST(XMLDocumentTest, NestingIsBoundedAndTheParserTellsTheLine) {
    for (const int32_t excess : {0, 1, 100'000}) {
        std::string document;
        const int32_t levels = MLibraryInternals::MXMLParser::MaximumDepth + excess;
        for (int32_t i = 0; i < levels; ++i) document += "<a>";
        for (int32_t i = 0; i < levels; ++i) document += i > 0 ? "<b/></a>" : "</a>";
        EXPECT_EQ(FailureOfLoading(document),
                  excess == 0 ? "none" : "100: Invalid file contents. Elements are nested too deeply.");
    }
    // Joining the pieces of a text once took the square of their number: half a minute for these.
    std::string pieces;
    for (int32_t i = 0; i < 200'000; ++i) pieces += "<b/>c";
    EXPECT_EQ(Read("<a>" + pieces + "</a>").substr(0, 9), "<a>c c c ");
    const std::string document = "<a>\n<b/>\n<c></d>\n</a>";
    MXMLItem root;
    MMemoryStream stream = MStreamOf(document);
    MLibraryInternals::MXMLParser parser(root);
    EXPECT_THROW(parser.ParseDocument(stream), MException);
    EXPECT_EQ(parser.GetLine(), 3);
    EXPECT_EQ(root.GetSubItemCount(), 2);
}

TEST(XMLDocumentTest, PrettyFormPutsEachWordOnALine) {
    MXMLItem root("a");
    root.SetValue("one <two>");
    root.SetAttribute("k", "v");
    root.AddSubItem("b")->SetValue("x");
    root.AddSubItem("c");
    EXPECT_EQ(Saved(root, false), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                  "<a k=\"v\">\n\tone\n\t&lt;two&gt;\n\t<b>\n\t\tx\n\t</b>\n\t<c/>\n</a>\n");
    EXPECT_EQ(Saved(root, true), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                 "<a k=\"v\">one &lt;two&gt;<b>x</b><c/></a>");
}

TEST(XMLDocumentTest, EveryFormReadsBackAsItWas) {
    const MString odd = Wide(u"\U0001F600<\u010D\U0001F600 <>\"'&\n");
    MXMLItem root("a");
    root.SetValue(Wide(u"first  second \U0001F600"));
    root.SetAttribute("z", odd);
    root.AddSubItem("b")->AddSubItem("c")->SetValue(Wide(u"x\U0001F600y z"));
    const std::string whole = Saved(root, true);
    const MScratch scratch;
    MMemoryStream packed;
    root.SaveCompressed(packed, "utf-8");
    EXPECT_EQ(MBytesOf(packed).front(), '\x78');
    packed.Rewind();
    root.SaveFile(scratch.Join("state.xml"), false, "utf-8");
    EXPECT_EQ(scratch.ReadFile("state.xml"), Saved(root, false));
    const std::function<void(MXMLItem&)> loads[] = {
        [&](MXMLItem& read) { read.LoadCompressed(packed); },
        [&](MXMLItem& read) { read.LoadFile(scratch.Join("state.xml")); }};
    MXMLItem* deep = &root;
    for (int i = 0; i < 40; ++i) deep = deep->AddSubItem("i");
    EXPECT_EQ(Saved(root, false).find(std::string(33, '\t')), std::string::npos);
    for (const auto& load : loads) {
        MXMLItem read;
        load(read);
        EXPECT_EQ(Saved(read, true), whole);
        EXPECT_TRUE(read.GetAttribute("z").IsExactly(odd));
    }
}

TEST(XMLDocumentTest, WhatAnEncodingLacksIsLeftOutAndTakesNoMarkupWithIt) {
    // The codec drops the unit after a lone high surrogate, and that unit was the "<" of the closing tag.
    const char16_t lone[] = {'x', 0xDAAB, 0};
    MXMLItem root("a");
    root.SetValue(Wide(lone));
    root.SetAttribute("b", Wide(lone));
    EXPECT_EQ(MSaveXML(root), "<a b=\"x\">x</a>");
    root.SetValue(Wide(u"p\u0159\u00ED\u0161\u4E00"));
    const std::string document = Saved(root, true, "windows-1250");
    EXPECT_NE(document.find("encoding=\"windows-1250\""), std::string::npos);
    EXPECT_NE(document.find("p\xF8\xED\x9A<"), std::string::npos);
    root.AddSubItem("");
    EXPECT_EQ(FailureOf([&] { Saved(root, true); }), "0: XML entity cannot have empty name.");
}

TEST(XMLDocumentTest, BinaryValuesComeBackAtTheirExactSize) {
    const std::string block = MTestNoise(1000);
    MXMLItem item("blob");
    item.StoreBinary(block.data(), 1000);
    EXPECT_EQ(Text(item.GetValue().Substring(0, 2)), "78");
    std::string read(1001, '\0');
    item.LoadBinary(read.data(), 1000);
    EXPECT_EQ(read.substr(0, 1000), block);
    for (const int32_t size : {999, 1001})
        EXPECT_EQ(FailureOf([&] { item.LoadBinary(read.data(), size); }),
                  "0: Value doesn't have correct format.");
    item.SetValue("7G");
    EXPECT_EQ(FailureOf([&] { item.LoadBinary(read.data(), 1); }),
              "0: Invalid character to be converted to a number.");
}

}  // namespace
