#pragma once

#include "foundation/text/encodings/MEncoding.h"

/// UTF-16, low byte first, with the signature FF FE in streams.
class MEncoding::UTF16Codec final : public MEncoding::Codec {
public:
    using Codec::Decode;
    [[nodiscard]] MString GetName() const override { return "utf16"; }
    [[nodiscard]] MString Decode(std::string_view bytes) const override;
    [[nodiscard]] MCHARBuffer Encode(const MString& text, bool terminate) const override;
    /// Raises "Invalid UTF8 header." (0) if the signature is missing.
    void ReadHeader(Reader& reader) const override;
    void WriteHeader(Writer& writer) const override;
    bool ReadLine(Reader& reader, MString& line) const override;
};
