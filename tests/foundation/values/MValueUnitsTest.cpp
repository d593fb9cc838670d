#include "foundation/values/MValueFrequency.h"
#include "foundation/values/MValuePan.h"
#include "foundation/values/MValuePercents.h"
#include "foundation/values/MValuePitch.h"
#include "foundation/values/MValueTimeMS.h"
#include "foundation/values/MValueVolume.h"

#include "tests/support/MTestText.h"

#include <string>
#include <vector>

namespace {

using Pairs = std::vector<std::pair<const char*, double>>;

/// Checks that numbers have their texts, and that typing these leads to the same texts again; what else leads to
/// which number; and what leads to none.
template <class Value>
void ExpectTexts(Value value, const Pairs& shown, const Pairs& typed,
                 const std::vector<const char*>& refused = {}) {
    for (const auto& [text, number] : shown) {
        value.Set(number);
        EXPECT_EQ(Text(value.GetText()), text) << number;
        value.Set(value.GetMax());
        value.SetText(text);
        EXPECT_EQ(Text(value.GetText()), text);
        EXPECT_FALSE(value.SetText(text)) << text;
        MString accepted = text;
        accepted.KeepAccepted(value.GetCharFilter());
        EXPECT_EQ(Text(accepted), text);
    }
    for (const auto& [text, number] : typed) {
        value.Set(number > value.GetMin() ? value.GetMin() : value.GetMax());
        EXPECT_TRUE(value.SetText(text)) << text;
        EXPECT_NEAR(value.Get(), number, 1e-9) << text;
    }
    for (const char* text : {"", " ", "nan", "inf", "dB", "%", "-", "1 parsec", "1e999", "5 5"})
        EXPECT_FALSE(value.SetText(text)) << text;
    for (const char* text : refused) EXPECT_FALSE(value.SetText(text)) << text;
}

TEST(MValueUnitsTest, TextsHaveTheUnitAndMayBeTypedWithOrWithoutIt) {
    ExpectTexts(MValuePercents("mix", -1, 2, 0.3),
                {{"0.50%", 0.005}, {"50.0%", 0.5}, {"0.00%", 0}, {"-25.0%", -0.25}, {"150.0%", 1.5}},
                {{"50%", 0.5}, {" 12,5 % ", 0.125}, {"7", 0.07}, {"1e9", 2}});
    ExpectTexts(MValueVolume("gain", 0, 100, 1),
                {{"0.00 dB", 1}, {"silence", 0}, {"-6.02 dB", 0.5}, {"-60.0 dB", 0.001}, {"40.0 dB", 100}},
                {{"-6 dB", 0.501187233627}, {"20db", 10}, {"+20", 10}, {"9999 dB", 100}, {" SILENCE ", 0}});
    ExpectTexts(MValueTimeMS("attack", -1, 10, 0.25),
                {{"0 ms", 0}, {"0.050 ms", 5e-5}, {"0.50 ms", 5e-4}, {"5.0 ms", 5e-3}, {"-20 ms", -0.02}},
                {{"20", 0.02}, {"20ms", 0.02}, {"1.5 s", 1.5}, {"0,5 MS", 0.0005}});
    ExpectTexts(
        MValuePan("pan", -1, 1, 0.3),
        {{"center", 0}, {"50% left", -0.5}, {"25% right", 0.25}, {"100% left", -1}, {"100% right", 1}},
        {{"50", 0.5}, {"-50%", -0.5}, {"30 left", -0.3}, {"30%Right ", 0.3}, {"500% right", 1}},
        {"left", "50% up", "-50% left", "centerpiece"});
}

TEST(MValueUnitsTest, Frequency) {
    ExpectTexts(MValueFrequency("cutoff", 0.000001, 30'000, 10),
                {{"0.2500 Hz", 0.25},
                 {"5.00 Hz", 5},
                 {"50.0 Hz", 50},
                 {"440 Hz", 440.4},
                 {"9999 Hz", 9999},
                 {"12.5 kHz", 12'500}},
                {{"440Hz", 440}, {"1.5 kHz", 1500}, {"2k", 2000}, {"99", 99}, {"-3 hz", 0.000001}});
    EXPECT_EQ(Text(MValueFrequency("cutoff", 0, 1, 0.000001).GetText()), "0 Hz");
    MValueFrequencyLog logarithmic;
    logarithmic.SetNormalized(0.5);
    EXPECT_EQ(Text(logarithmic.GetText()), "632 Hz");
    MValueFrequencyLinear linear;
    linear.SetNormalized(0.5);
    EXPECT_EQ(Text(linear.GetText()), "10.0 kHz");
}

TEST(MValueUnitsTest, Pitch) {
    ExpectTexts(MValuePitch(), {{"+12.00", 12}, {"0.00", 0}, {"-3.50", -3.5}},
                {{"+7", 7}, {"-100", -24}, {"C1", 24}});
    MValuePitch note("note", -24, 140, 7);
    note.SetFormat(MValuePitch::NoteFormat);
    ExpectTexts(
        note,
        {{"C4 (0 cents)", 60}, {"A4 (+10 cents)", 69.1}, {"C#4 (-25 cents)", 60.75}, {"B-2 (0 cents)", -1}},
        {{"a4", 69}, {"b4 -20 cents", 70.8}, {"Cb4 ", 59}, {"69", 69}, {"C99999999999999999999", 140}},
        {"H4", "C", "C#", "C4 (", "C4 loud", "(10 cents)"});
    note.SetRange(-1e300, 1e300);
    note.Set(1e300);
    EXPECT_EQ(Text(note.GetText()).substr(0, 4), "+100");
}

}  // namespace
