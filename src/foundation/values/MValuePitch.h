#pragma once

#include "foundation/values/MValueNumber.h"

/// A pitch in semitones. By default it is a distance, shown as "+12.00". With `NoteFormat`, or another format
/// with a placeholder "{1}", it is a note, 60 being C4, shown by name, octave and the cents above it: 69.1 is
/// "A4 (+10 cents)". Numbers and notes can be typed for either form; a note may have "#" or "b" behind its
/// letter, and needs no cents.
class MValuePitch : public MValueDouble {
public:
    static constexpr const char* NoteFormat = "{0}{1} ({2+} cents)";

    /// From two octaves down to two octaves up.
    MValuePitch() : MValuePitch(MString(), -24, 24, 0) {}
    MValuePitch(const MString& id, double minimum, double maximum, double defaultValue);

protected:
    [[nodiscard]] MString FormatNumber(double number) const override;
    [[nodiscard]] bool ParseNumber(const MString& text, double& number) const override;
};
