#pragma once

#include "foundation/text/encodings/MEncoding.h"

/// UTF-8 (RFC 3629), leniently: malformed bytes never raise.
///
/// Decoding skips stray bytes, leaves the unit 1 in place of a sequence that is broken off together with
/// the byte that broke it, and of one that stands for a surrogate or nothing at all, drops byte-order
/// marks and accepts overlong forms. Encoding drops lone
/// surrogates together with the unit after a high one, skips the unit that follows a surrogate pair, and
/// turns the code points from 0x10FE01 to 0x10FEFF back into the raw byte that they stand for, skipping
/// two units.
class MEncoding::UTF8Codec final : public MEncoding::Codec {
public:
    using Codec::Decode;
    [[nodiscard]] MString GetName() const override { return "utf8"; }
    [[nodiscard]] MString Decode(std::string_view bytes) const override;
    [[nodiscard]] MCHARBuffer Encode(const MString& text, bool terminate) const override;
};
