#pragma once

#include "foundation/text/MString.h"

#include <concepts>
#include <cstdint>

/// How a whole number is written. The width counts digits only; the sign stands in front of the padding.
struct MNumberForm {
    uint32_t radix = 10;  ///< from 2 to 16
    int32_t width = 0;
    char pad = ' ';
    bool plus = false;  ///< writes "+" in front of values above 0
};

/// The text of a number given by magnitude and sign.
[[nodiscard]] MString MIntegerToText(uint64_t magnitude, bool isNegative, const MNumberForm& form = {});

template <std::integral Integer>
[[nodiscard]] MString MNumberToText(Integer value, const MNumberForm& form = {}) {
    const bool isNegative = value < 0;
    const auto bits = static_cast<uint64_t>(value);
    return MIntegerToText(isNegative ? 0 - bits : bits, isNegative, form);
}

/// Writes as printf does in the "C" locale, whatever the locale of the process: a precision below 10 gives
/// that many decimals ("%.4f"), a precision from 10 up the shortest form with that many digits ("%.12g").
/// With `plus`, values above 1e-20 begin with "+".
[[nodiscard]] MString MDoubleToText(double value, int32_t precision = 6, bool plus = false);

/// Reads an optional "-" and digits of `radix` (2 to 36, letters of either case) from the character at
/// `start` up to the first other character. Leading blanks and "+" are not accepted. Overflow wraps in
/// 64 bits. `consumed` takes the number of characters read, the sign included; it is 0 for an empty text.
[[nodiscard]] int64_t MParseInt64(const MString& text, int32_t start = 0, int32_t radix = 10,
                                  int32_t* consumed = nullptr);
/// The low 32 bits of `MParseInt64`.
[[nodiscard]] int32_t MParseInt32(const MString& text);
/// Reads as strtod does in the "C" locale: text that is no number gives 0, a number that is too large for a
/// double infinity of its sign, one that is too small 0.
[[nodiscard]] double MParseDouble(const MString& text);

/// The low bytes of the first four characters, the first one lowest; missing ones are 0.
[[nodiscard]] uint32_t MFourCharacterCode(const MString& text);
/// Eight hexadecimal digits.
[[nodiscard]] MString MHexadecimalText(uint32_t value);
