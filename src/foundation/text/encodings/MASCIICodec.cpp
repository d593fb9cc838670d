#include "foundation/text/encodings/MASCIICodec.h"

MString MEncoding::ASCIICodec::Decode(std::string_view bytes) const {
    const std::string_view text = bytes.substr(0, bytes.find('\0'));
    return MString::Copy(text.data(), static_cast<int32_t>(text.size()));
}

MCHARBuffer MEncoding::ASCIICodec::Encode(const MString& text, bool terminate) const {
    return text.ToNarrow(terminate);
}
