#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <span>

/// The number that a text typed by a user begins with, blanks and a "+" before it allowed. `unit` takes what
/// follows it, trimmed. False, with nothing changed, if there is no number or it is beyond what a double
/// holds. "." and "," both part the decimals; there are no separators of thousands.
[[nodiscard]] bool MReadTypedNumber(const MString& text, double& number, MString& unit);
/// As above for a whole number. One beyond 64 bits becomes the nearest that there is.
[[nodiscard]] bool MReadTypedInteger(const MString& text, int64_t& number, MString& unit);

/// A unit that a number may be typed with: the value is the number * `multiplier` / `divisor`.
struct MTypedUnit {
    const char* name;  ///< compared ignoring case; "" for a number without unit
    double multiplier = 1;
    double divisor = 1;
};
/// A number with one of the units. False, with nothing changed, for any other text.
[[nodiscard]] bool MReadTypedMeasure(const MString& text, std::span<const MTypedUnit> units, double& value);

/// The text, trimmed, without the literal characters that a format string has before its first and behind
/// its last placeholder. Raises "Formatting string ends in an argument specification." (0).
[[nodiscard]] MString MWithoutFormat(const MString& text, const MString& format);
