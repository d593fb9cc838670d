#include "foundation/text/MNumberText.h"

#include "foundation/text/MTypedNumber.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

namespace {

/// The value of a digit in any radix up to 36; 36 for a character that is none.
uint32_t DigitValue(MChar character) {
    if (character.IsDigit()) return static_cast<uint32_t>(character - '0');
    const MChar lower = character.ToLower();
    return lower.IsLowerLetter() ? static_cast<uint32_t>(lower - 'a') + 10 : 36;
}

/// Whether a number that no double can hold is too large rather than too small, told by the place of its
/// first digit that counts.
bool IsTooLarge(std::string_view number, std::chars_format form) {
    const bool isHexadecimal = form == std::chars_format::hex;
    const size_t mark = std::min(number.find_first_of(isHexadecimal ? "pP" : "eE"), number.size());
    const size_t point = std::min(number.find('.'), mark);
    const auto digit = static_cast<double>(number.find_first_not_of("0."));
    const double places = (static_cast<double>(point) - digit) * (isHexadecimal ? 4 : 1);
    int64_t exponent = 0;
    MString rest;
    const auto behind = number.substr(std::min(mark + 1, number.size()));
    (void)MReadTypedInteger(MString::Copy(behind.data(), static_cast<int32_t>(behind.size())), exponent,
                            rest);
    return static_cast<double>(exponent) + places > 0;
}

/// What printf has written, with "." where the locale of the process has a decimal point of its own.
/// std::to_chars knows no locale, but brings tables of a hundred kilobytes.
std::string WithPoint(const std::string& number) {
    constexpr std::string_view Digits = "0123456789";
    const size_t point = number.find_first_not_of(Digits, number.find_first_of(Digits));
    const size_t decimals = number.find_first_of(Digits, point);
    if (decimals == std::string::npos || number[point] == 'e') return number;
    return number.substr(0, point) + "." + number.substr(decimals);
}

}  // namespace

MString MIntegerToText(uint64_t magnitude, bool isNegative, const MNumberForm& form) {
    // 64 binary digits, or a padding of up to 255, and a sign.
    constexpr int32_t Room = 256;
    char16_t digits[Room];
    char16_t* const end = digits + Room;
    char16_t* first = end;
    const uint64_t value = magnitude;
    do {
        *--first = "0123456789ABCDEF"[magnitude % form.radix];
        magnitude /= form.radix;
    } while (magnitude != 0);
    const char16_t* const padded = end - std::min(form.width, Room - 1);
    while (first > padded) *--first = MChar(form.pad);
    if (isNegative)
        *--first = '-';
    else if (form.plus && value != 0)
        *--first = '+';
    return MString::Copy(first, static_cast<int32_t>(end - first));
}

MString MDoubleToText(double value, int32_t precision, bool plus) {
    constexpr int32_t ShortestFormFrom = 10;
    constexpr double Noise = 1e-20;
    // The largest double has 309 digits before the point.
    char work[512];
    const bool isFixed = precision < ShortestFormFrom;
    std::snprintf(work, sizeof work, isFixed ? "%.*f" : "%.*g", static_cast<int>(precision), value);
    const MString text = MString::Copy(WithPoint(work).c_str());
    return plus && value > Noise ? "+" + text : text;
}

int64_t MParseInt64(const MString& text, int32_t start, int32_t radix, int32_t* consumed) {
    const int32_t length = text.GetLength();
    const auto base = static_cast<uint32_t>(radix);
    int32_t position = std::clamp(start, 0, length);
    const int32_t first = position;
    const bool isNegative = position < length && text[position] == '-';
    if (isNegative) ++position;
    uint64_t value = 0;
    for (; position < length; ++position) {
        const uint32_t digit = DigitValue(text[position]);
        if (digit >= base) break;
        value = value * base + digit;
    }
    if (consumed) *consumed = position - first;
    return static_cast<int64_t>(isNegative ? 0 - value : value);
}

int32_t MParseInt32(const MString& text) {
    return static_cast<int32_t>(MParseInt64(text));
}

double MParseDouble(const MString& text) {
    const MCHARBuffer narrow = text.Trimmed().ToNarrow(false);
    const char* first = narrow.Get();
    const char* const end = first + narrow.GetSize();
    if (first == end) return 0;
    const bool isNegative = *first == '-';
    if (isNegative || *first == '+') ++first;
    if (first == end || *first == '-') return 0;
    auto form = std::chars_format::general;
    if (end - first > 2 && first[0] == '0' && (first[1] | 0x20) == 'x') {
        form = std::chars_format::hex;
        first += 2;
    }
    double value = 0;
    const auto [last, error] = std::from_chars(first, end, value, form);
    if (error == std::errc::result_out_of_range)
        value = IsTooLarge({first, last}, form) ? std::numeric_limits<double>::infinity() : 0;
    return isNegative ? -value : value;
}

uint32_t MFourCharacterCode(const MString& text) {
    uint32_t code = 0;
    for (int32_t i = 0; i < std::min(text.GetLength(), 4); ++i)
        code |= static_cast<uint32_t>(static_cast<uint8_t>(text[i].ToNarrow())) << (8 * i);
    return code;
}

MString MHexadecimalText(uint32_t value) {
    return MIntegerToText(value, false, {.radix = 16, .width = 8, .pad = '0'});
}
