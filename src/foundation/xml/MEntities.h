#pragma once

#include "foundation/text/MString.h"

#include <string>
#include <string_view>

/// The character references of the library's mark-up: "&amp;" "&lt;" "&gt;" "&apos;" "&quot;" and "&#10;",
/// whose names are matched ignoring case. Any other reference is text.
class MEntities {
public:
    /// Appends the text with its references replaced, in one pass: what a replacement makes is not
    /// looked at again.
    static void Decode(std::u16string_view text, std::u16string& target);
    /// Appends the text with the six characters replaced by references.
    static void Escape(const MString& text, MString& target);
    [[nodiscard]] static MString Escape(const MString& text);
};
