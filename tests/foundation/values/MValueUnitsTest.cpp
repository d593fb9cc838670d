#include "foundation/values/MValueFrequency.h"
#include "foundation/values/MValuePan.h"
#include "foundation/values/MValuePercents.h"
#include "foundation/values/MValuePitch.h"
#include "foundation/values/MValueTimeMS.h"
#include "foundation/values/MValueVolume.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Shown {
    double number;
    const char* text;
};

/// Checks the texts of numbers, and that typing a text leads to the same text again.
template <class Value>
void ExpectShown(Value value, const std::vector<Shown>& cases) {
    for (const Shown& tested : cases) {
        value.Set(tested.number);
        EXPECT_EQ(Text(value.GetText()), tested.text) << tested.number;
        value.Set(value.GetMax());
        value.SetText(tested.text);
        EXPECT_EQ(Text(value.GetText()), tested.text);
        EXPECT_FALSE(value.SetText(tested.text)) << tested.text;
        MString typed = tested.text;
        typed.KeepAccepted(value.GetCharFilter());
        EXPECT_EQ(Text(typed), tested.text);
    }
}

struct Typed {
    const char* text;
    double number;
};

template <class Value>
void ExpectTyped(Value value, const std::vector<Typed>& cases) {
    for (const Typed& tested : cases) {
        value.Set(tested.number > value.GetMin() ? value.GetMin() : value.GetMax());
        EXPECT_TRUE(value.SetText(tested.text)) << tested.text;
        EXPECT_NEAR(value.Get(), tested.number, 1e-9) << tested.text;
    }
}

template <class Value>
void ExpectRefused(Value value, const std::vector<const char*>& texts) {
    const double before = value.Get();
    for (const char* text : texts) {
        EXPECT_FALSE(value.SetText(text)) << text;
        EXPECT_EQ(value.Get(), before) << text;
    }
}

const std::vector<const char*> NoNumbers = {"",  " ", "nan",      "inf",   "dB",
                                            "%", "-", "1 parsec", "1e999", "5 5"};

TEST(MValueUnitsTest, Percents) {
    const MValuePercents value("mix", -1, 2, 0.3);
    ExpectShown(value, {{0.005, "0.50%"}, {0.5, "50.0%"}, {0, "0.00%"}, {-0.25, "-25.0%"}, {1.5, "150.0%"}});
    ExpectTyped(value, {{"50%", 0.5}, {" 12,5 % ", 0.125}, {"7", 0.07}, {"1e9", 2}});
    ExpectRefused(value, NoNumbers);
}

TEST(MValueUnitsTest, Volume) {
    const MValueVolume value("gain", 0, 100, 1);
    ExpectShown(value, {{1, "0.00 dB"},
                        {0, "silence"},
                        {2, "6.02 dB"},
                        {0.5, "-6.02 dB"},
                        {0.001, "-60.0 dB"},
                        {100, "40.0 dB"}});
    ExpectTyped(value, {{"-6 dB", 0.501187233627}, {"20db", 10}, {"+20", 10}, {"9999 dB", 100}});
    ExpectRefused(value, NoNumbers);
    MValueVolume silent = value;
    EXPECT_TRUE(silent.SetText(" SILENCE "));
    EXPECT_EQ(silent.Get(), 0);
}

TEST(MValueUnitsTest, Milliseconds) {
    const MValueTimeMS value("attack", -1, 10, 0.25);
    ExpectShown(value, {{0, "0 ms"},
                        {0.00005, "0.050 ms"},
                        {0.0005, "0.50 ms"},
                        {0.005, "5.0 ms"},
                        {2, "2000 ms"},
                        {-0.02, "-20 ms"}});
    ExpectTyped(value, {{"20", 0.02}, {"20ms", 0.02}, {"1.5 s", 1.5}, {"0,5 MS", 0.0005}});
    ExpectRefused(value, NoNumbers);
}

TEST(MValueUnitsTest, Panorama) {
    const MValuePan value("pan", -1, 1, 0.3);
    ExpectShown(
        value,
        {{0, "center"}, {-0.5, "50% left"}, {0.25, "25% right"}, {-1, "100% left"}, {1, "100% right"}});
    ExpectTyped(value,
                {{"50", 0.5}, {"-50%", -0.5}, {"30 left", -0.3}, {"30%Right ", 0.3}, {"500% right", 1}});
    ExpectRefused(value, NoNumbers);
    ExpectRefused(value, {"left", "50% up", "-50% left", "centerpiece"});
}

TEST(MValueUnitsTest, Frequency) {
    const MValueFrequency value("cutoff", 0.000001, 30'000, 10);
    ExpectShown(value, {{0.25, "0.2500 Hz"},
                        {5, "5.00 Hz"},
                        {50, "50.0 Hz"},
                        {440.4, "440 Hz"},
                        {9999, "9999 Hz"},
                        {12'500, "12.5 kHz"}});
    ExpectTyped(value, {{"440Hz", 440}, {"1.5 kHz", 1500}, {"2k", 2000}, {"99", 99}, {"-3 hz", 0.000001}});
    ExpectRefused(value, NoNumbers);
    EXPECT_EQ(Text(MValueFrequency("cutoff", 0, 1, 0.000001).GetText()), "0 Hz");
    MValueFrequencyLog logarithmic;
    logarithmic.SetNormalized(0.5);
    EXPECT_EQ(Text(logarithmic.GetText()), "632 Hz");
    MValueFrequencyLinear linear;
    linear.SetNormalized(0.5);
    EXPECT_EQ(Text(linear.GetText()), "10.0 kHz");
}

TEST(MValueUnitsTest, Pitch) {
    const MValuePitch distance;
    ExpectShown(distance, {{12, "+12.00"}, {0, "0.00"}, {-3.5, "-3.50"}});
    ExpectTyped(distance, {{"+7", 7}, {"-100", -24}, {"C1", 24}});
    ExpectRefused(distance, NoNumbers);

    MValuePitch note("note", -24, 140, 7);
    note.SetFormat(MValuePitch::NoteFormat);
    ExpectShown(note, {{60, "C4 (0 cents)"},
                       {69.1, "A4 (+10 cents)"},
                       {60.75, "C#4 (-25 cents)"},
                       {0, "C-1 (0 cents)"},
                       {-1, "B-2 (0 cents)"}});
    ExpectTyped(note, {{"a4", 69},
                       {"Bb3 ", 58},
                       {"b4 -20 cents", 70.8},
                       {"Cb4", 59},
                       {"69", 69},
                       {"C99999999999999999999", 140}});
    ExpectRefused(note, {"H4", "C", "C#", "C4 (", "C4 loud", "(10 cents)"});
    note.SetRange(-1e300, 1e300);
    note.Set(1e300);
    EXPECT_EQ(Text(note.GetText()).substr(0, 4), "+100");
}

}  // namespace
