#pragma once

#include <cstdint>

/// Source units from 192 up that are Latin letters with diacritics become their base letter;
/// every other unit stays. The table is in MDiacritics.cpp.
[[nodiscard]] char16_t MFoldDiacriticsByTable(char16_t unit);

/// One UTF-16 code unit, 16 bits on every platform. Letters, digits and case are ASCII only.
class MChar {
public:
    constexpr MChar() = default;
    constexpr MChar(char16_t unit) : unit(unit) {}
    /// Widens by sign extension: a byte of 128 or above becomes a unit from 0xFF80 to 0xFFFF.
    constexpr MChar(char narrow) : unit(static_cast<char16_t>(static_cast<signed char>(narrow))) {}

    constexpr operator char16_t() const { return unit; }

    [[nodiscard]] constexpr bool IsEndOfText() const { return unit == 0; }
    /// Every control character and the space.
    [[nodiscard]] constexpr bool IsBlank() const { return unit < 33; }
    [[nodiscard]] constexpr bool IsControl() const { return unit < 32; }
    [[nodiscard]] constexpr bool IsControlOtherThanTab() const { return unit < 32 && unit != 9; }
    /// A control character that has no place in text: not 0, tab or line feed.
    [[nodiscard]] constexpr bool IsNonTextControl() const {
        return unit < 32 && unit != 0 && unit != 9 && unit != 10;
    }
    [[nodiscard]] constexpr bool IsNewline() const { return unit == 10; }
    [[nodiscard]] constexpr bool IsUpperLetter() const { return unit >= 'A' && unit <= 'Z'; }
    [[nodiscard]] constexpr bool IsLowerLetter() const { return unit >= 'a' && unit <= 'z'; }
    [[nodiscard]] constexpr bool IsLetter() const { return IsUpperLetter() || IsLowerLetter(); }
    [[nodiscard]] constexpr bool IsDigit() const { return unit >= '0' && unit <= '9'; }
    [[nodiscard]] constexpr bool IsAlphanumeric() const { return IsLetter() || IsDigit(); }
    [[nodiscard]] constexpr bool IsUpperLetterOrDigit() const { return IsUpperLetter() || IsDigit(); }
    [[nodiscard]] constexpr bool IsHighSurrogate() const { return unit >= 0xD800 && unit <= 0xDBFF; }
    [[nodiscard]] constexpr bool IsLowSurrogate() const { return unit >= 0xDC00 && unit <= 0xDFFF; }

    [[nodiscard]] constexpr MChar ToLower() const {
        return IsUpperLetter() ? MChar(static_cast<char16_t>(unit + 32)) : *this;
    }
    [[nodiscard]] constexpr MChar ToUpper() const {
        return IsLowerLetter() ? MChar(static_cast<char16_t>(unit - 32)) : *this;
    }
    [[nodiscard]] MChar FoldDiacritics() const {
        return unit < 192 ? *this : MChar(MFoldDiacriticsByTable(unit));
    }

    /// The low byte.
    [[nodiscard]] constexpr char ToNarrow() const { return static_cast<char>(unit & 0xFF); }
    /// The value of a hexadecimal digit of either case.
    /// Raises "Invalid character to be converted to a number." (0) for any other unit.
    [[nodiscard]] int32_t ToHexDigit() const;
    /// The upper-case digit for a value from 0 to 15.
    [[nodiscard]] static constexpr MChar FromHexDigit(uint32_t value) {
        return MChar("0123456789ABCDEF"[value & 15]);
    }

private:
    char16_t unit = 0;
};
