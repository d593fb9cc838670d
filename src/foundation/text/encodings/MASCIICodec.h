#pragma once

#include "foundation/text/encodings/MEncoding.h"

/// Bytes as they stand: widened by sign extension, narrowed to the low byte after diacritic folding.
class MEncoding::ASCIICodec final : public MEncoding::Codec {
public:
    using Codec::Decode;
    [[nodiscard]] MString GetName() const override { return "ascii"; }
    [[nodiscard]] MString Decode(std::string_view bytes) const override;
    [[nodiscard]] MCHARBuffer Encode(const MString& text, bool terminate) const override;
};
