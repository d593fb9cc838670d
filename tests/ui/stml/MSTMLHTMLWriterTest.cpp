#include "ui/stml/MSTMLHTMLWriter.h"
#include "tests/support/MTestText.h"
#include "ui/stml/MSTMLPlainText.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

/// What stands between the body's tags.
std::string Body(const MString& markup) {
    const std::string page = Text(MSTMLHTMLWriter::Write("T", markup));
    const size_t start = page.find("<body>\n") + 7;
    return page.substr(start, page.find("</body>") - start);
}

TEST(MSTMLHTMLWriterTest, WritesWhatAPageSays) {
    const std::pair<const char*, const char*> cases[] = {
        {"a &lt;script&gt; <b>b<cred>c</b>d",
         "<p class=\"left\">a &lt;script&gt; <span class=\"b \">b</span>"
         "<span class=\"b cred\">c</span><span class=\" cred\">d</span></p>\n"},
        {"<center invert=1>a</center><p>b", "<p class=\"center invert\">a</p>\n<p class=\"center\">b</p>\n"},
        {"<li>a</li>b", "<ul><li><p class=\"left\">a</p>\n</li></ul>\n<p class=\"left\">b</p>\n"},
        {"<tr>x<td>a<td>b</tr>",
         "<table><tr><td><p class=\"left\">a</p>\n</td><td><p class=\"left\">b</p>\n</td></tr></table>\n"},
        {"<tagset name=n><b></tagset><n>a</n>b", "<p class=\"left\"><span class=\"b \">a</span>b</p>\n"},
        {"a<hline><td>b</td>", "<p class=\"left\">a</p>\n<hr>\n<p class=\"left\">b</p>\n"},
    };
    for (const auto& [markup, expected] : cases) EXPECT_EQ(Body(markup), expected) << markup;
    EXPECT_NE(Text(MSTMLHTMLWriter::Write("<x>", "a")).find("<title>&lt;x&gt;</title>"), std::string::npos);
}

TEST(MSTMLPlainTextTest, KeepsWordsAndLines) {
    EXPECT_EQ(Text(MSTMLPlainText::Of(
                  "<p><b>a</b> <i>b</i> &lt;<p> <p>c<tr><td>d<td>e</tr><tagset name=n><p></tagset>"
                  "f<n>g<broken")),
              "a b <\nc\nd\ne\nf\ng");
}

TEST(MSTMLHTMLWriterTest, ClosesWhatItOpens) {
    const char* const pieces[] = {"<tr>",      "</tr>", "<td>", "</td>",   "<li>",     "</li>",
                                  "<p>",       "</p>",  "<b>",  "</b>",    "a",        "<cred>",
                                  "<header1>", "</l1>", "&lt;", "<hline>", "<center>", "<p"};
    std::mt19937 random(1);
    for (int32_t round = 0; round < 2000; ++round) {
        MString markup;
        for (uint32_t i = random() % 16; i > 0; --i) markup += pieces[random() % std::size(pieces)];
        const std::string body = Body(markup);
        std::vector<std::string> open;
        for (size_t at = body.find('<'); at != std::string::npos; at = body.find('<', at + 1)) {
            const std::string name = body.substr(at + 1, body.find_first_of(" >", at) - at - 1);
            if (name == "hr") continue;
            if (name[0] != '/') {
                open.push_back(name);
                continue;
            }
            ASSERT_FALSE(open.empty()) << body;
            ASSERT_EQ("/" + open.back(), name) << body;
            open.pop_back();
        }
        ASSERT_TRUE(open.empty()) << Text(markup) << " gives " << body;
    }
}

}  // namespace
