#include "foundation/text/MUnicode.h"

#include <gtest/gtest.h>

namespace {

TEST(MUnicode, AnyBytesSurviveTheWayThereAndBack) {
    const std::string cases[] = {
        "plain",
        "\xC5\x99 \xE2\x82\xAC \xF0\x9F\x98\x80 ab",
        "\xF4\x8F\xBF\xBF",  // the last code point
        "\xF4\x90\x80\x80",  // the one behind it
        "\xFF\xFE\x80",      // no UTF-8
        "\xC0\xAF",          // a slash in a form that is too long
        "\xED\xA0\x80",      // a surrogate
        "\xE2\x82",          // cut off
        "a\xC3",
        "\xF4\x8F\xBA\x80",  // what stands for a raw byte in a text
        std::string("a\0b", 3),
    };
    for (const std::string& bytes : cases) EXPECT_EQ(MEncodeUTF8Exact(MDecodeUTF8Exact(bytes)), bytes);

    std::string all;
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second)
            all += {static_cast<char>(first), static_cast<char>(second)};
    EXPECT_EQ(MEncodeUTF8Exact(MDecodeUTF8Exact(all)), all);
}

TEST(MUnicode, CodePointsBecomeTheRightUnits) {
    const MString text = MDecodeUTF8Exact("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\x80");
    EXPECT_TRUE(text.IsExactly(MString::Copy(u"\u00E9\u20AC\U0001F600\U0010FE80")));
}

TEST(MUnicode, ASurrogateWithoutItsPairIsReplaced) {
    const std::string replacement = "\xEF\xBF\xBD";
    const char16_t high[] = {0xD800, u'a', 0};
    const char16_t low[] = {0xDC00, 0xD801, 0};
    EXPECT_EQ(MEncodeUTF8Exact(MString::Copy(high)), replacement + "a");
    EXPECT_EQ(MEncodeUTF8Exact(MString::Copy(low)), replacement + replacement);
}

}  // namespace
