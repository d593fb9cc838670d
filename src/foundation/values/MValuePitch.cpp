#include "foundation/values/MValuePitch.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MTypedNumber.h"

#include <cmath>

namespace {

constexpr int32_t SemitonesPerOctave = 12;
/// C of octave 0.
constexpr int32_t FirstNote = 12;
constexpr const char* NoteNames[SemitonesPerOctave] = {"C",  "C#", "D",  "D#", "E",  "F",
                                                       "F#", "G",  "G#", "A",  "A#", "B"};
/// Beyond these a pitch is no note that anybody could name.
constexpr double LargestNote = 1e6;

MString FormatNote(const MString& format, double pitch) {
    const auto note = static_cast<int32_t>(std::lround(pitch));
    const auto cents = static_cast<int32_t>(std::lround((pitch - note) * 100));
    const int32_t semitone = (note % SemitonesPerOctave + SemitonesPerOctave) % SemitonesPerOctave;
    const int32_t octave = (note - semitone - FirstNote) / SemitonesPerOctave;
    return MFormat(format, NoteNames[semitone], octave, cents);
}

/// Reads a letter with its accidental and moves behind it.
bool ReadNoteName(const MString& text, int32_t& position, double& semitone) {
    constexpr int32_t Semitones[] = {9, 11, 0, 2, 4, 5, 7};
    const MChar letter = text.IsEmpty() ? MChar() : text[0].ToUpper();
    if (letter < 'A' || letter > 'G') return false;
    semitone = Semitones[letter - 'A'];
    const MChar accidental = text.GetLength() > 1 ? text[1] : MChar();
    if (accidental == '#') ++semitone;
    if (accidental == 'b') --semitone;
    position = accidental == '#' || accidental == 'b' ? 2 : 1;
    return true;
}

/// Reads "(+10 cents)", with or without the brackets and the word, or nothing.
bool ReadCents(MString text, double& cents) {
    static constexpr MTypedUnit Units[] = {{""}, {"cents"}, {"cent"}};
    cents = 0;
    if (text.StartsWith("(") && text.EndsWith(")")) text = text.Substring(1, text.GetLength() - 2);
    return text.IsEmpty() || MReadTypedMeasure(text, Units, cents);
}

bool ReadNote(const MString& text, double& pitch) {
    int32_t position = 0;
    double semitone = 0;
    int64_t octave = 0;
    double cents = 0;
    MString rest;
    if (!ReadNoteName(text, position, semitone)) return false;
    if (!MReadTypedInteger(text.Substring(position), octave, rest) || !ReadCents(rest, cents)) return false;
    pitch = FirstNote + static_cast<double>(octave) * SemitonesPerOctave + semitone + cents / 100;
    return true;
}

}  // namespace

MValuePitch::MValuePitch(const MString& id, double minimum, double maximum, double defaultValue)
    : MValueDouble(id, minimum, maximum, defaultValue) {
    SetFormat("{0;+.02}");
}

MString MValuePitch::FormatNumber(double number) const {
    if (!GetFormat().Contains("{1")) return MValueDouble::FormatNumber(number);
    if (std::fabs(number) > LargestNote) return MFormat("{0;+.02}", number);
    return FormatNote(GetFormat(), number);
}

bool MValuePitch::ParseNumber(const MString& text, double& number) const {
    return MValueDouble::ParseNumber(text, number) || ReadNote(text.Trimmed(), number);
}
