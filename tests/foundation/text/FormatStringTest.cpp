#include "foundation/text/MByteSizeText.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MStringScanner.h"

#include "tests/support/MTestText.h"

#include <cmath>
#include <limits>
#include <tuple>

namespace {

template <class... Values>
std::string Format(const char* format, const Values&... values) {
    return Text(MFormat(format, values...));
}

TEST(FormatterTest, ValuesFillPlaceholdersByNumber) {
    EXPECT_EQ(Format("{1} {0}", "a", "b"), "b a");
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

TEST(FormatterTest, SizesTakeTheUnitInWhichTheyStayBelow1024) {
    const std::pair<int64_t, const char*> cases[] = {
        {-1, "0 B"}, {1023, "1023 B"}, {1024, "1.0 KB"}, {(1 << 20) - 1, "1023.9 KB"}, {1 << 20, "1.0 MB"}};
    for (const auto& [bytes, text] : cases) EXPECT_EQ(Text(MByteSizeText(bytes)), text);
}

TEST(FormatterTest, AnOpenPlaceholderRaises) {
    for (const char* format : {"}{", "{", "{0", "abc{12;0", "{{{"})
        EXPECT_EQ(FailureOf([&] { (void)MFormat(format, 1); }),
                  "0: Formatting string ends in an argument specification.")
            << format;
    EXPECT_THROW(MStringScanner("a{0", "abc"), MException);
}

TEST(ScannerTest, StopsWhereFormatAndInputPart) {
    const std::tuple<const char*, const char*, int32_t, const char*> cases[] = {
        {"{0}:{1}", "12:34", 2, "12"},  {"{0}:{1}", "12;34", 1, "12;34"},
        {"{0} {1}", "a   b", 2, "a"},   {"{0} \t{1}", "a b", 2, "a"},
        {"x{0}", "y1", 0, "-"},         {"a {0}", "a1", 0, "-"},
        {"{{{0}}}", "{v}", 1, "v"},     {"{0}-{1}", "only", 1, "only"},
        {"", "text", 0, "-"},           {"{0}", "", 0, "-"},
        {"v{0} {1}", "v1 ", 1, "1"},    {"{1} {0}", "one two", 2, "two"},
        {"{32}{40}", "one two", 0, "-"}};
    for (const auto& [format, input, count, expected] : cases) {
        MStringScanner scanner(format, input);
        MString first("-");
        EXPECT_EQ(scanner.GetCapturedCount(), count) << format;
        scanner.Take(first);
        EXPECT_EQ(Text(first), expected) << format;
    }
}

TEST(ScannerTest, EveryTypeIsTakenUntilAValueHasNoDigits) {
    uint32_t colour = 0;
    double gain = 0;
    float pan = 0;
    int64_t wide = 7;
    int16_t narrow = 7;
    MString name("untouched");
    MStringScanner scanner("#{0x} {1} {2} {3},{4},{5}", "#fFa0 -1.5e2 0.25 x,y,rest of it");
    scanner.Take(colour).Take(gain).Take(pan).Take(wide).Take(narrow).Take(name);
    EXPECT_EQ(colour, 0xFFA0u);
    EXPECT_EQ(gain, -150);
    EXPECT_EQ(pan, 0.25f);
    EXPECT_EQ(wide + narrow, 0);
    EXPECT_EQ(scanner.GetCapturedCount(), 4);
    EXPECT_EQ(Text(name), "untouched");
}

TEST(NumberTextTest, IntegersParseAsFarAsTheyGo) {
    const std::tuple<const char*, int32_t, int32_t, int64_t, int32_t> cases[] = {
        {"", 0, 10, 0, 0},
        {"-", 0, 10, 0, 1},
        {" 5", 0, 10, 0, 0},
        {"+5", 0, 10, 0, 0},
        {"-12x", 0, 10, -12, 3},
        {"a12", 1, 10, 12, 2},
        {"fFg", 0, 16, 255, 2},
        {"zZ", 0, 36, 35 * 37, 2},
        {"5", 9, 10, 0, 0},
        {"18446744073709551617", 0, 10, 1, 20},
        {"9223372036854775808", 0, 10, std::numeric_limits<int64_t>::min(), 19}};
    for (const auto& [text, start, radix, value, expected] : cases) {
        int32_t consumed = -1;
        EXPECT_EQ(MParseInt64(text, start, radix, &consumed), value) << text;
        EXPECT_EQ(consumed, expected) << text;
    }
    EXPECT_EQ(MParseInt32(Heap("4294967297")), 1);
}

TEST(NumberTextTest, DoublesParseAsFarAsTheyGo) {
    const std::pair<const char*, double> cases[] = {{"", 0},         {"abc", 0},
                                                    {" +1.5 ", 1.5}, {"-2.5x", -2.5},
                                                    {"--1", 0},      {"+-1", 0},
                                                    {"1e3", 1000},   {".5", 0.5},
                                                    {"0x10", 16},    {"1,5", 1},
                                                    {"-0x1p1", -2},  {"-1e999 x", -HUGE_VAL},
                                                    {"1e-999", 0},   {"0x1p99999", HUGE_VAL}};
    for (const auto& [text, value] : cases) EXPECT_EQ(MParseDouble(text), value) << text;
    // The exponent alone does not tell on which side of the range a number lies.
    EXPECT_EQ(MParseDouble(Heap((std::string(999, '9') + "e-9").c_str())), HUGE_VAL);
    EXPECT_EQ(MParseDouble(Heap(("0." + std::string(999, '0') + "1e9").c_str())), 0);
    EXPECT_EQ(Text(MDoubleToText(1.0 / 3)), "0.333333");
}

TEST(NumberTextTest, CodesAndHexadecimalWords) {
    EXPECT_EQ(MFourCharacterCode("MASK"), 0x4B53414Du);
    EXPECT_EQ(MFourCharacterCode("AB"), 0x4241u);
    EXPECT_EQ(Text(MHexadecimalText(0xBEEF)), "0000BEEF");
}

}  // namespace
