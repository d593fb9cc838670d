#include "foundation/xml/MXMLItem.h"
#include "foundation/xml/MXMLParser.h"
#include "streams/basic/MMemoryStream.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

std::string FailureOfLoading(const std::string& text) {
    return FailureOf([&] {
        MXMLItem root;
        MMemoryStream stream(text.data(), static_cast<int32_t>(text.size()));
        root.Load(stream);
    });
}

TEST(XMLParseErrorsTest, EachFaultHasItsText) {
    struct {
        const char* source;
        const char* detail;
    } const cases[] = {
        {"<>", "No element name found."},
        {"</>", "No element name found."},
        {"<=a>", "No element name found."},
        {"<a \"x\">", "Special character found where attribute expected."},
        {"<a =x>", "Special character found where attribute expected."},
        {"<a b=>", "Special character found where attribute expected."},
        {"<a b>", "Invalid character found where attribute expected."},
        {"<a b c=d>", "Invalid character found where attribute expected."},
        {"<a/b>", "Invalid element finishing sequence."},
        {"<a/ >", "Invalid element finishing sequence."},
        {"<a></a b>", "Invalid closing element syntax."},
        {"<a></b>", "Invalid closing element name."},
        {"</a>", "Invalid closing element name."},
        {"<a><![DATA[x]]></a>", "Invalid special element sequence."},
        {"<a>text", "No ending delimiter found."},
        {"<a b=\"c>", "No ending delimiter found."},
        {"<!-- -- >", "No ending delimiter found."},
        {"<!DOCTYPE", "No ending delimiter found."},
        {"<?xml version=\"1.0\"", "No ending delimiter found."},
        {"<", "No ending delimiter found."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FailureOfLoading(c.source), std::string("100: Invalid file contents. ") + c.detail)
            << c.source;
    EXPECT_EQ(FailureOfLoading("text<a/>"), "0: Text outside of any element.");
    EXPECT_EQ(FailureOfLoading("<![CDATA[x]]>"), "0: Text outside of any element.");
    for (const char* empty : {"", " \n ", "<!-- only -->", "<?xml version=\"1.0\"?>\n"})
        EXPECT_EQ(FailureOfLoading(empty), "0: The XML does not contain any elements.") << empty;
}

TEST(XMLParseErrorsTest, EveryTruncationRaises) {
    const std::string document =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE a>\n<a b=\"c &amp; d\" e=f>\n"
        "<!-- note -->text \xC4\x8D<![CDATA[<raw>]]><b\n/>more</a>";
    for (size_t size = 0; size < document.size(); ++size)
        EXPECT_NE(FailureOfLoading(document.substr(0, size)), "none") << size;
    EXPECT_EQ(FailureOfLoading(document), "none");
}

TEST(XMLParseErrorsTest, EveryChangedByteGivesATreeOrAnException) {
    const std::string document =
        "<?xml encoding=\"windows-1250\"?>\n<a b=\"c\"><!-- --><![CDATA[x]]><c/>&lt;</a>";
    for (size_t at = 0; at < document.size(); ++at) {
        for (const char byte : {'\0', '<', '>', '"', '/', '!', '=', '?', '\n', '\xC3'}) {
            std::string broken = document;
            broken[at] = byte;
            const std::string failure = FailureOfLoading(broken);
            EXPECT_TRUE(failure == "none" || failure.starts_with("100: ") || failure.starts_with("0: "))
                << broken;
        }
    }
}

TEST(XMLParseErrorsTest, NestingIsBounded) {
    const auto nested = [](int32_t levels) {
        std::string document;
        for (int32_t i = 0; i < levels; ++i) document += "<a>";
        for (int32_t i = 0; i < levels; ++i) document += "</a>";
        return document;
    };
    const int32_t most = MLibraryInternals::MXMLParser::MaximumDepth;
    EXPECT_EQ(FailureOfLoading(nested(most)), "none");
    EXPECT_EQ(FailureOfLoading(nested(most + 1)),
              "100: Invalid file contents. Elements are nested too deeply.");
    EXPECT_NE(FailureOfLoading(nested(200000)), "none");
}

TEST(XMLParseErrorsTest, TheParserTellsTheLineAndKeepsWhatItRead) {
    const std::string document = "<a>\n<b/>\n<c></d>\n</a>";
    MXMLItem root;
    MMemoryStream stream(document.data(), static_cast<int32_t>(document.size()));
    MLibraryInternals::MXMLParser parser(root);
    EXPECT_EQ(FailureOf([&] { parser.ParseDocument(stream); }),
              "100: Invalid file contents. Invalid closing element name.");
    EXPECT_EQ(parser.GetLine(), 3);
    EXPECT_EQ(root.GetSubItemCount(), 2);
}

}  // namespace
