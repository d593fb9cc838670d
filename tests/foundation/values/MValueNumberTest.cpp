#include "foundation/values/MValueNumber.h"
#include "foundation/values/MValueScaleSqr.h"
#include "foundation/values/MValueStepDouble.h"
#include "foundation/xml/MXMLItem.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(MValueNumberTest, WholeNumbersReadOnlyWholeNumbers) {
    struct Case {
        const char* text;
        bool changed;
        int32_t result;
    };
    const Case cases[] = {
        {"7", true, 7},
        {" -7 \t", true, -7},
        {"+8", true, 8},
        {"99999999999", true, 100},
        {"-99999999999999999999999", true, -100},
        {"", false, 5},
        {" ", false, 5},
        {"abc", false, 5},
        {"-", false, 5},
        {"1.5", false, 5},
        {"7 px", false, 5},
        {"0x10", false, 5},
        {"--7", false, 5},
        {"5", false, 5},
    };
    for (const Case& tested : cases) {
        MValueInt32 value("count", -100, 100, 5);
        EXPECT_EQ(value.SetText(tested.text), tested.changed) << tested.text;
        EXPECT_EQ(value.Get(), tested.result) << tested.text;
    }
}

TEST(MValueNumberTest, FractionsReadPointAndCommaButNothingThatIsNoNumber) {
    struct Case {
        const char* text;
        bool changed;
        double result;
    };
    const Case cases[] = {
        {"1.5", true, 1.5},  {"1,5 ", true, 1.5},   {".25", true, 0.25},     {"-,5", true, -0.5},
        {"2.", true, 2},     {"1e1", true, 10},     {"1E-1", true, 0.1},     {"1e30", true, 50},
        {"nan", false, 3},   {"inf", false, 3},     {"-infinity", false, 3}, {"1e999", false, 3},
        {"1.2.3", false, 3}, {"1,000.5", false, 3}, {".", false, 3},         {"e5", false, 3},
        {"0x1p3", false, 3}, {"3", false, 3},       {"1 2", false, 3},
    };
    for (const Case& tested : cases) {
        MValueDouble value("gain", -50, 50, 3);
        EXPECT_EQ(value.SetText(tested.text), tested.changed) << tested.text;
        EXPECT_EQ(value.Get(), tested.result) << tested.text;
    }
    MValueDouble value("gain", -50, 50, 3);
    // Wide digits whose low bytes look like ASCII ones are none.
    EXPECT_FALSE(value.SetText(Wide(u"\u0131\u0132")));
}

TEST(MValueNumberTest, TheFormatIsShownAndMayBeTypedOrLeftOut) {
    MValueInt32 value("width", 0, 100, 12);
    value.SetFormat("about {0;03} px");
    EXPECT_EQ(Text(value.GetText()), "about 012 px");
    for (const char* text : {"about 034 px", "34 PX", "About 34", "34"}) {
        value.ResetToDefault();
        EXPECT_TRUE(value.SetText(text)) << text;
        EXPECT_EQ(value.Get(), 34) << text;
    }
    EXPECT_EQ(FailureOf([&] { value.SetFormat("{0"); }),
              "0: Formatting string ends in an argument specification.");
    EXPECT_EQ(Text(value.GetText()), "about 034 px");
}

TEST(MValueNumberTest, TheLowerLimitWinsOverTheUpperOne) {
    MValueInt32 value("count", 10, 0, 5);
    EXPECT_EQ(value.Get(), 10);
    value.Set(3);
    EXPECT_EQ(value.Get(), 10);
    value.SetNormalized(1);
    EXPECT_EQ(value.Get(), 10);
    EXPECT_EQ(value.GetDiscreteCount(), 1);
}

TEST(MValueNumberTest, PositionsRunThroughTheRange) {
    MValueInt32 whole("count", 0, 100, 0);
    for (int32_t i = 0; i <= 100; ++i) {
        whole.Set(i);
        const double position = whole.GetNormalized();
        whole.SetNormalized(position);
        EXPECT_EQ(whole.Get(), i);
    }
    MValueDouble fraction("gain", -1, 3, 0);
    EXPECT_DOUBLE_EQ(fraction.GetNormalized(), 0.25);
    fraction.SetNormalized(0.75);
    EXPECT_DOUBLE_EQ(fraction.Get(), 2);
    for (const auto& [position, result] :
         {std::pair{-0.5, -1.0}, {7.0, 3.0}, {Infinity, 3.0}, {NotANumber, 3.0}}) {
        fraction.SetNormalized(position);
        EXPECT_EQ(fraction.Get(), result) << position;
    }
    MValueDouble single("gain", 2, 2, 2);
    single.SetNormalized(0.7);
    EXPECT_EQ(single.Get(), 2);
    EXPECT_EQ(single.GetNormalized(), 0);
}

TEST(MValueNumberTest, ALogarithmicScaleHasEqualRatios) {
    MValueDoubleLog value("frequency", 10, 1000, 10);
    value.SetNormalized(0.5);
    EXPECT_NEAR(value.Get(), 100, 1e-9);
    EXPECT_NEAR(value.GetNormalized(), 0.5, 1e-12);
    EXPECT_TRUE(value.Step(50, false));
    EXPECT_EQ(value.Get(), 1000);
    // There is no logarithm of 0.
    value.SetRange(0, 1000);
    value.SetNormalized(0.5);
    EXPECT_EQ(value.Get(), 500);
}

TEST(MValueNumberTest, StepsStayInsideTheRangeAndTheType) {
    constexpr int64_t Least = std::numeric_limits<int64_t>::min();
    constexpr int64_t Most = std::numeric_limits<int64_t>::max();
    MValueInt64 wide("count", Least, Most, 0);
    wide.SetSteps(1, Most / 2);
    EXPECT_TRUE(wide.StepBy(1'000'000));
    EXPECT_EQ(wide.Get(), Most);
    EXPECT_FALSE(wide.Step(1, true));
    EXPECT_TRUE(wide.Step(-1'000'000, false));
    EXPECT_EQ(wide.Get(), Least);
    EXPECT_EQ(wide.GetDiscreteCount(), std::numeric_limits<int32_t>::max());
    wide.SetNormalized(0.5);
    EXPECT_EQ(wide.Get(), 0);

    MValueInt16 narrow;
    narrow.SetRange(-1'000'000, 1'000'000);
    narrow.SetText("70000");
    EXPECT_EQ(narrow.Get(), 32767);

    MValueDouble fraction("gain", 0, 1, 0);
    EXPECT_TRUE(fraction.Step(3, false));
    EXPECT_DOUBLE_EQ(fraction.Get(), 0.03);
    EXPECT_TRUE(fraction.Step(-10, true));
    EXPECT_DOUBLE_EQ(fraction.Get(), 0.02);
}

TEST(MValueNumberTest, IndicesCountFromTheMinimum) {
    MValueInt32 value("count", -2, 7, 0);
    EXPECT_EQ(value.GetDiscreteCount(), 10);
    EXPECT_EQ(value.GetDiscreteIndex(), 2);
    value.SetDiscreteIndex(9);
    EXPECT_EQ(value.Get(), 7);
    value.SetDiscreteIndex(std::numeric_limits<int32_t>::max());
    EXPECT_EQ(value.Get(), 7);
    EXPECT_EQ(MValueFloat().GetDiscreteCount(), 0);
}

TEST(MValueNumberTest, AnOutsideVariableIsWorkedOnAndMended) {
    double outside = NotANumber;
    MValueDouble value("gain", 0, 10, 4);
    value.Bind(&outside);
    EXPECT_EQ(value.GetNormalized(), 0);
    value.Validate();
    EXPECT_EQ(outside, 4);
    EXPECT_TRUE(value.SetText("6.5"));
    EXPECT_EQ(outside, 6.5);
    EXPECT_FALSE(value.Set(NotANumber));
    value.Bind(nullptr);
    value.Set(1);
    EXPECT_EQ(outside, 6.5);
}

TEST(MValueNumberTest, StorageKeepsSixDecimalsAndReadsWhatIsNoNumberAsZero) {
    MXMLItem item("state");
    MValueDouble saved("gain", -1, 1, 0.5);
    saved.Set(-0.1234567);
    EXPECT_TRUE(saved.Save(item));
    EXPECT_EQ(Text(item.GetAttribute("gain")), "-0.123457");
    MValueDouble loaded("gain", -0.1, 1, 0.5);
    loaded.Load(item);
    EXPECT_EQ(loaded.Get(), -0.1);
    item.RemoveAttribute("gain");
    loaded.Load(item);
    EXPECT_EQ(loaded.Get(), 0.5);
    for (const char* text : {"words", "nan", ""}) {
        loaded.ResetToDefault();
        loaded.FromStorageText(text);
        EXPECT_EQ(loaded.Get(), 0) << text;
    }
}

TEST(MValueNumberTest, DefinitionsGiveLimitsAndSteps) {
    MXMLItem item("value");
    item.SetAttribute("id", "cutoff");
    item.SetAttribute("min", "-4");
    item.SetAttribute("max", "20");
    item.SetAttribute("default", "8");
    item.SetAttribute("maxinc", "2");
    item.SetAttribute("step", "0.5");
    item.SetAttribute("format", "{0;.1} s");
    MValueDouble plain;
    plain.LoadDefinition(item);
    EXPECT_EQ(Text(plain.GetId()), "cutoff");
    EXPECT_EQ(Text(plain.GetText()), "8.0 s");
    EXPECT_TRUE(plain.StepBy(2));
    EXPECT_EQ(plain.Get(), 12);

    item.SetAttribute("value", "99");
    MValueStepDouble stepped;
    stepped.LoadDefinition(item);
    EXPECT_EQ(stepped.Get(), 20);
    EXPECT_TRUE(stepped.Step(-3, false));
    EXPECT_TRUE(stepped.Step(-1, true));
    EXPECT_EQ(stepped.Get(), 18);
}

TEST(MValueNumberTest, HooksStandInForTheTexts) {
    MValueInt32 value("count", 0, 10, 2);
    value.SetTextHooks([](const MValue& source) { return source.GetDisplayText() + " pieces"; },
                       [](MValue& target, const MString&) { target.SetDiscreteIndex(3); });
    EXPECT_EQ(Text(value.GetText()), "2 pieces");
    EXPECT_TRUE(value.SetText("words"));
    EXPECT_EQ(value.Get(), 3);
    EXPECT_TRUE(value.SetText("words"));
}

TEST(MValueNumberTest, ASquareScaleIsFinerAtTheLowEnd) {
    MValueDouble inner("gain", 0, 8, 0);
    MValueScaleSqr value(inner);
    value.SetNormalized(0.5);
    EXPECT_DOUBLE_EQ(inner.GetNormalized(), 0.25);
    EXPECT_DOUBLE_EQ(value.GetNormalized(), 0.5);
    value.SetNormalized(-0.5);
    EXPECT_EQ(inner.Get(), 0);
    EXPECT_TRUE(value.SetText("4"));
    MXMLItem item("state");
    value.Save(item);
    EXPECT_EQ(Text(item.GetAttribute("gain")), "4.000000");
}

}  // namespace
