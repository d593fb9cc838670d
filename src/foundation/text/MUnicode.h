#pragma once

#include "foundation/text/MString.h"

#include <string>
#include <string_view>

/// The exact way between UTF-16 and UTF-8 (RFC 3629), for paths and consoles. The codecs of MEncoding.h have
/// rules of their own.
///
/// What cannot be written in UTF-8 survives the round trip: a byte that belongs to no valid sequence becomes
/// the code point 0x10FE00 + byte, and that code point becomes the byte again. `MRawBackslash` becomes a
/// backslash; decoding gives it to nobody.

/// For those who must tell a backslash that is a part of a name from one that separates: the code point of
/// the private use area that stands for it on file systems of this kind elsewhere, too.
inline constexpr char16_t MRawBackslash = 0xF05C;

/// A surrogate without its pair becomes U+FFFD. A literal's byte widens by sign extension.
[[nodiscard]] std::string MEncodeUTF8Exact(const MString& text);

[[nodiscard]] MString MDecodeUTF8Exact(std::string_view bytes);

/// Whether all the bytes belong to valid sequences.
[[nodiscard]] bool MIsUTF8(std::string_view bytes);

/// The code point that begins at a unit of an `MString` or of what has its units and length; `index` then is
/// that of the next one. A surrogate without its pair gives U+FFFD.
template <class Text>
[[nodiscard]] char32_t MTakeCodePoint(const Text& text, int32_t& index) {
    const MChar unit = text[index++];
    if (!unit.IsHighSurrogate() && !unit.IsLowSurrogate()) return unit;
    if (unit.IsLowSurrogate() || index >= text.GetLength() || !text[index].IsLowSurrogate()) return 0xFFFD;
    return 0x10000 + ((unit - 0xD800u) << 10) + (text[index++] - 0xDC00u);
}
