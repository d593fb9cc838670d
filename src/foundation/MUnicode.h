#pragma once

#include "foundation/MString.h"

#include <string>
#include <string_view>

/// The exact way between UTF-16 and UTF-8 (RFC 3629), for paths and consoles. The codecs of MEncoding.h have
/// rules of their own.
///
/// What cannot be written in UTF-8 survives the round trip: a byte that belongs to no valid sequence becomes
/// the code point 0x10FE00 + byte, and that code point becomes the byte again.

/// A surrogate without its pair becomes U+FFFD. A literal's byte widens by sign extension.
[[nodiscard]] std::string MEncodeUTF8Exact(const MString& text);

[[nodiscard]] MString MDecodeUTF8Exact(std::string_view bytes);

/// Whether all the bytes belong to valid sequences.
[[nodiscard]] bool MIsUTF8(std::string_view bytes);
