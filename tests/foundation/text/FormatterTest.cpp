#include "foundation/text/MStringFormatter.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

template <class... Values>
std::string Format(const char* format, const Values&... values) {
    return Text(MFormat(format, values...));
}

TEST(FormatterTest, ValuesFillPlaceholdersByNumber) {
    EXPECT_EQ(Format("{1} {0}", "a", "b"), "b a");
    EXPECT_EQ(Format("{0}{1}", "a", "b"), "ab");
    EXPECT_EQ(Format("{1}{0}{2}", "a", "b", "c"), "bac");
    EXPECT_EQ(Format("{2}{1}{0}|{3}", "a", "b", "c", "d"), "cba|d");
    EXPECT_EQ(Format("{}", "only"), "only");
    EXPECT_EQ(Format("<{31}>"), "<>");
    EXPECT_EQ(Format("{0} of {0}", 3), " of 3");
    EXPECT_EQ(Format("{1}", "unused", "used"), "used");
    EXPECT_EQ(Format("{32}{999}{0}", "a", "b", "c"), "a");
    EXPECT_EQ(Format("{{{0}}}", "x"), "{x}");
    EXPECT_EQ(Format("{{0}}a}b", "x"), "{0}a}b");
    EXPECT_EQ(Format("{0}}}{{", "{0}"), "{0}}{");
}

TEST(FormatterTest, WholeNumbersTakeWidthPlusAndRadix) {
    EXPECT_EQ(Format("{0;03}", -5), "-005");
    EXPECT_EQ(Format("{0: 4}|", 42), "  42|");
    EXPECT_EQ(Format("{0:02}:{1:02}", 7, 123), "07:123");
    EXPECT_EQ(Format("{0+} {1+} {2+} {3+}", 5, 0, -5, 7u), "+5 0 -5 +7");
    EXPECT_EQ(Format("{0x;02} {1x} {2x}", 10, -255, 0xFFFFFFFFu), "0A -FF FFFFFFFF");
    EXPECT_EQ(Format("{0;099}", 1).size(), 99u);
    EXPECT_EQ(Format("{0} {1}", std::numeric_limits<int64_t>::min(), std::numeric_limits<uint64_t>::max()),
              "-9223372036854775808 18446744073709551615");
    EXPECT_EQ(Format("{0} {1} {2}", int8_t{-128}, uint8_t{255}, uint16_t{65535}), "-128 255 65535");
}

TEST(FormatterTest, FloatingNumbersPrintAsTheRuntimeLibraryWould) {
    EXPECT_EQ(Format("{0} {0;.1}", 2.25), " 2.2");
    EXPECT_EQ(Format("{0}", 1.5), "1.5000");
    EXPECT_EQ(Format("{0;.0}|{1;.9}", 2.5, 0.1), "2|0.100000000");
    EXPECT_EQ(Format("{0;.10} {1;.12}", 0.1, 1e300), "0.1 1e+300");
    EXPECT_EQ(Format("{0;+.02} {1+} {2+.1}", 1.005, 0.0, -0.5), "+1.00 0.0000 -0.5");
    EXPECT_EQ(Format("{0;.1}", 1e300).size(), 303u);
    EXPECT_EQ(Format("{0}", -std::numeric_limits<double>::infinity()), "-inf");
}

TEST(FormatterTest, AnOpenPlaceholderRaises) {
    for (const char* format : {"}{", "{", "{0", "abc{12;0", "{{{"})
        EXPECT_EQ(FailureOf([&] { (void)MFormat(format, 1); }),
                  "0: Formatting string ends in an argument specification.")
            << format;
}

}  // namespace
