#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// One placeholder of a format string, the form that formatter and scanner share:
///
///     placeholder   = "{" [digit [digit [digit]]] { specification } "}"
///     specification = (" " | "0") width | "." precision | "+" | "x" | any other character, skipped
///     width, precision = up to two digits
///
/// "{{" and "}}" stand for one brace, and so does a single "}" outside a placeholder.
struct MFormatSpecification {
    static constexpr int32_t MaximumPlaceholders = 32;

    /// From 0 to 999; numbers from `MaximumPlaceholders` up have no value and are ignored.
    int32_t number = 0;
    bool hexadecimal = false;
    bool plus = false;
    /// The least number of digits; 0 for none.
    uint8_t width = 0;
    char pad = ' ';
    uint8_t precision = 4;

    /// Reads a placeholder from the character after its "{" and moves `position` behind its "}".
    /// Raises "Formatting string ends in an argument specification." (0).
    [[nodiscard]] static MFormatSpecification Read(const MString& format, int32_t& position);
    /// True if a placeholder opens at `position`. Doubled braces are left to `ReadLiteral`.
    [[nodiscard]] static bool StartsAt(const MString& format, int32_t position);
    /// The literal character at `position`, which moves behind it; a doubled brace counts as one.
    [[nodiscard]] static MChar ReadLiteral(const MString& format, int32_t& position);
};
