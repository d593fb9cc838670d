#include "foundation/text/MStringScanner.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(ScannerTest, StopsWhereFormatAndInputPart) {
    struct {
        const char* format;
        const char* input;
        int32_t count;
        const char* first;
    } const cases[] = {
        {"{0}:{1}", "12:34", 2, "12"},
        {"{0}:{1}", "12;34", 1, "12;34"},
        {"{0} {1}", "a   b", 2, "a"},
        {"{0} \t{1}", "a b", 2, "a"},
        {"x{0}", "y1", 0, "-"},
        {"a {0}", "a1", 0, "-"},
        {"{{{0}}}", "{v}", 1, "v"},
        {"{0}-{1}", "only", 1, "only"},
        {"", "text", 0, "-"},
        {"{0}", "", 0, "-"},
        {"v{0} {1}", "v1 ", 1, "1"},
        {"{1} {0}", "one two", 2, "two"},
        {"{32}{40}", "one two", 0, "-"},
    };
    for (const auto& c : cases) {
        MStringScanner scanner(c.format, c.input);
        MString first("-");
        EXPECT_EQ(scanner.GetCapturedCount(), c.count) << c.format;
        scanner.Take(first);
        EXPECT_EQ(Text(first), c.first) << c.format;
    }
    EXPECT_EQ(FailureOf([] { MStringScanner("a{0", "abc"); }),
              "0: Formatting string ends in an argument specification.");
}

TEST(ScannerTest, AValueWithoutDigitsEndsTheTaking) {
    int32_t first = 7;
    int16_t second = 7;
    int32_t third = 7;
    MStringScanner scanner("{0},{1},{2}", "1,x,3");
    scanner.Take(first).Take(second).Take(third);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
    EXPECT_EQ(third, 7);
    EXPECT_EQ(scanner.GetCapturedCount(), 1);

    int64_t wide = 7;
    MStringScanner("{0},{1}", "x,3").Take(wide).Take(third);
    EXPECT_EQ(wide, 0);
    EXPECT_EQ(third, 3);
}

TEST(ScannerTest, DeliversEveryType) {
    uint32_t colour = 0;
    double gain = 0;
    float pan = 0;
    MString name;
    MStringScanner("#{0x} {1} {2} {3}", "#fFa0 -1.5e2 0.25 rest of it")
        .Take(colour)
        .Take(gain)
        .Take(pan)
        .Take(name);
    EXPECT_EQ(colour, 0xFFA0u);
    EXPECT_EQ(gain, -150);
    EXPECT_EQ(pan, 0.25f);
    EXPECT_EQ(Text(name), "rest of it");
}

TEST(NumberTextTest, IntegersParseAsFarAsTheyGo) {
    struct {
        const char* text;
        int32_t start;
        int32_t radix;
        int64_t value;
        int32_t consumed;
    } const cases[] = {
        {"", 0, 10, 0, 0},
        {"-", 0, 10, 0, 1},
        {" 5", 0, 10, 0, 0},
        {"+5", 0, 10, 0, 0},
        {"-12x", 0, 10, -12, 3},
        {"a12", 1, 10, 12, 2},
        {"fFg", 0, 16, 255, 2},
        {"zZ", 0, 36, 35 * 37, 2},
        {"129", 0, 8, 10, 2},
        {"5", 9, 10, 0, 0},
        {"18446744073709551617", 0, 10, 1, 20},
        {"9223372036854775808", 0, 10, std::numeric_limits<int64_t>::min(), 19},
    };
    for (const auto& c : cases) {
        for (const MString& text : {MString(c.text), Heap(c.text)}) {
            int32_t consumed = -1;
            EXPECT_EQ(MParseInt64(text, c.start, c.radix, &consumed), c.value) << c.text;
            EXPECT_EQ(consumed, c.consumed) << c.text;
        }
    }
    EXPECT_EQ(MParseInt32("4294967297"), 1);
}

TEST(NumberTextTest, DoublesParseAsFarAsTheyGo) {
    struct {
        const char* text;
        double value;
    } const cases[] = {{"", 0},         {"abc", 0},
                       {" +1.5 ", 1.5}, {"-2.5x", -2.5},
                       {"--1", 0},      {"+-1", 0},
                       {"1e3", 1000},   {".5", 0.5},
                       {"0x10", 16},    {"1,5", 1},
                       {"-0x1p1", -2},  {"-1e999 x", -HUGE_VAL},
                       {"1e-999", 0},   {"0x1p99999", HUGE_VAL}};
    for (const auto& c : cases) EXPECT_EQ(MParseDouble(c.text), c.value) << c.text;
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
