#include "foundation/values/MValueNumber.h"
#include "foundation/values/MValueScaleSqr.h"
#include "foundation/values/MValueStepDouble.h"
#include "foundation/xml/MXMLItem.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <cmath>
#include <limits>
#include <tuple>

namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

/// What text leads a value of -50 to 50 to from 5, which is its own text too.
template <class Value>
double Typed(const char* text) {
    Value value("value", -50, 50, 5);
    const bool isChanged = value.SetText(text);
    EXPECT_EQ(isChanged, value.Get() != 5) << text;
    return static_cast<double>(value.Get());
}

TEST(MValueNumberTest, OnlyNumbersAreTaken) {
    const std::tuple<const char*, double, double> cases[] = {
        {"7", 7, 7},       {" -7 \t", -7, -7}, {"+8", 8, 8},      {"99999999999", 50, 50},
        {"-1e30", 5, -50}, {"", 5, 5},         {" ", 5, 5},       {"abc", 5, 5},
        {"-", 5, 5},       {"1.5", 5, 1.5},    {"1,5 ", 5, 1.5},  {".25", 5, 0.25},
        {"-,5", 5, -0.5},  {"2.", 5, 2},       {"1E-1", 5, 0.1},  {"7 px", 5, 5},
        {"0x10", 5, 5},    {"--7", 5, 5},      {"nan", 5, 5},     {"-infinity", 5, 5},
        {"1e999", 5, 5},   {"1.2.3", 5, 5},    {"1,000.5", 5, 5}, {".", 5, 5},
        {"e5", 5, 5},      {"1 2", 5, 5}};
    for (const auto& [text, whole, fraction] : cases) {
        EXPECT_EQ(Typed<MValueInt32>(text), whole) << text;
        EXPECT_EQ(Typed<MValueDouble>(text), fraction) << text;
    }
    // Wide digits whose low bytes look like ASCII ones are none.
    EXPECT_FALSE(MValueDouble().SetText(Wide(u"\u0131\u0132")));
}

TEST(MValueNumberTest, TheFormatIsShownAndMayBeTypedOrLeftOut) {
    MValueInt32 value("width", 0, 100, 12);
    EXPECT_EQ(value.GetCharFilter().GetFlags(), MCharFilter::IntegerFilter().GetFlags());
    value.SetFormat("about {0;03} px");
    EXPECT_EQ(Text(value.GetText()), "about 012 px");
    EXPECT_TRUE(value.GetCharFilter().Accept('p'));
    for (const char* text : {"about 034 px", "34 PX", "About 34", "34"}) {
        value.ResetToDefault();
        EXPECT_TRUE(value.SetText(text)) << text;
        EXPECT_EQ(value.Get(), 34) << text;
    }
    EXPECT_EQ(FailureOf([&] { value.SetFormat("{0"); }),
              "0: Formatting string ends in an argument specification.");
    EXPECT_EQ(Text(value.GetText()), "about 034 px");
    // Hooks stand in for both.
    value.SetTextHooks([](const MValue& source) { return source.GetDisplayText() + " wide"; },
                       [](MValue& target, const MString&) { target.SetDiscreteIndex(3); });
    for (int32_t i = 0; i < 2; ++i) EXPECT_TRUE(value.SetText("words"));
    EXPECT_EQ(Text(value.GetText()), "about 003 px wide");
}

TEST(MValueNumberTest, PositionsAndIndicesRunThroughTheRange) {
    MValueInt32 whole("count", -2, 100, 0);
    EXPECT_EQ(whole.GetDiscreteCount(), 103);
    for (int32_t i = 0; i < 103; ++i) {
        whole.SetDiscreteIndex(i);
        const double position = whole.GetNormalized();
        whole.SetNormalized(position);
        EXPECT_EQ(whole.Get(), i - 2);
        EXPECT_EQ(whole.GetDiscreteIndex(), i);
    }
    whole.SetDiscreteIndex(std::numeric_limits<int32_t>::max());
    EXPECT_EQ(whole.Get(), 100);
    MValueDouble fraction("gain", -1, 3, 0);
    EXPECT_DOUBLE_EQ(fraction.GetNormalized(), 0.25);
    for (const auto& [position, result] :
         {std::pair{0.75, 2.0}, {-0.5, -1.0}, {7.0, 3.0}, {Infinity, 3.0}, {NotANumber, 3.0}}) {
        fraction.SetNormalized(position);
        EXPECT_EQ(fraction.Get(), result) << position;
    }
    // The lower limit wins over the upper one.
    for (const int32_t maximum : {10, 0}) {
        MValueInt32 single("count", 10, maximum, 5);
        single.SetNormalized(0.7);
        EXPECT_FALSE(single.Set(3));
        EXPECT_EQ(single.Get(), 10);
        EXPECT_EQ(single.GetDiscreteCount(), 1);
    }
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
    EXPECT_TRUE(fraction.Step(-10, true));
    EXPECT_DOUBLE_EQ(fraction.Get(), 0.02);
}

TEST(MValueNumberTest, AnOutsideVariableIsWorkedOnAndMended) {
    double outside = NotANumber;
    MValueDouble value("gain", 0, 10, 4);
    value.Bind(&outside);
    EXPECT_EQ(value.GetNormalized(), 0);
    value.Validate();
    EXPECT_EQ(outside, 4);
    EXPECT_FALSE(value.Set(NotANumber));
    EXPECT_TRUE(value.SetText("6.5"));
    EXPECT_EQ(outside, 6.5);
    outside = 99;
    EXPECT_FALSE(value.SetText("words"));
    EXPECT_EQ(outside, 10);
    value.Bind(nullptr);
    value.Set(1);
    EXPECT_EQ(outside, 10);
}

TEST(MValueNumberTest, StorageKeepsSixDecimalsAndReadsWhatIsNoNumberAsZero) {
    MXMLItem item("state");
    MValueDouble saved("gain", -1, 1, 0.5);
    saved.Set(-0.1234567);
    EXPECT_TRUE(saved.Save(item));
    EXPECT_EQ(Text(item.GetAttribute("gain")), "-0.123457");
    MValueDouble loaded("gain", -0.1, 1, 0.5);
    for (const auto& [text, number] :
         {std::pair{"-0.123457", -0.1}, {"words", 0}, {"nan", 0}, {"", 0}, {"1e999", 1}}) {
        item.SetAttribute("gain", text);
        loaded.Load(item);
        EXPECT_EQ(loaded.Get(), number) << text;
    }
    item.RemoveAttribute("gain");
    loaded.Load(item);
    EXPECT_EQ(loaded.Get(), 0.5);
}

TEST(MValueNumberTest, DefinitionsGiveLimitsAndSteps) {
    MXMLItem item;
    MLoadXML(item, "<value id=\"cutoff\" min=\"-4\" max=\"20\" default=\"8\" maxinc=\"2\" step=\"0.5\" "
                   "format=\"{0;.1} s\"/>");
    MValueDouble plain;
    plain.LoadDefinition(item);
    EXPECT_EQ(Text(plain.GetId() + plain.GetText()), "cutoff8.0 s");
    EXPECT_TRUE(plain.StepBy(2));
    EXPECT_EQ(plain.Get(), 12);

    item.SetAttribute("value", "99");
    item.SetAttribute("format", "{");
    MValueStepDouble stepped;
    stepped.LoadDefinition(item);
    EXPECT_EQ(Text(stepped.GetText()), "20.0000");
    EXPECT_TRUE(stepped.Step(-3, false));
    EXPECT_TRUE(stepped.Step(-1, true));
    EXPECT_EQ(stepped.Get(), 18);
}

TEST(MValueNumberTest, ASquareScaleIsFinerAtTheLowEndAndElseTheOtherValue) {
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
    EXPECT_EQ(Text(item.GetAttribute(value.GetId())), "4.000000");
    value.SetTextHooks([](const MValue&) -> MString { return "hooked"; }, nullptr);
    EXPECT_EQ(Text(inner.GetText()), "hooked");
}

}  // namespace
