#include "foundation/text/encodings/MUTF16Codec.h"

#include "foundation/base/MException.h"
#include "foundation/text/encodings/MEncodingReader.h"
#include "foundation/text/encodings/MEncodingWriter.h"

namespace {

/// Low byte first, as all units: FF FE.
constexpr char16_t Signature = 0xFEFF;

char16_t UnitAt(std::string_view bytes, size_t index) {
    return static_cast<char16_t>(static_cast<uint8_t>(bytes[index]) | static_cast<uint8_t>(bytes[index + 1])
                                                                          << 8);
}

}  // namespace

MString MEncoding::UTF16Codec::Decode(std::string_view bytes) const {
    MString text;
    char16_t* const first = text.Resize(static_cast<int32_t>(bytes.size() / 2));
    char16_t* target = first;
    for (size_t i = 0; i + 1 < bytes.size() && UnitAt(bytes, i) != 0; i += 2) *target++ = UnitAt(bytes, i);
    text.Resize(static_cast<int32_t>(target - first));
    return text;
}

MCHARBuffer MEncoding::UTF16Codec::Encode(const MString& text, bool terminate) const {
    const int32_t count = text.GetLength() + (terminate ? 1 : 0);
    MCHARBuffer buffer(count * 2);
    char* target = buffer.Edit();
    for (int32_t i = 0; i < count; ++i) {
        const char16_t unit = text[i];
        *target++ = static_cast<char>(unit & 0xFF);
        *target++ = static_cast<char>(unit >> 8);
    }
    return buffer;
}

void MEncoding::UTF16Codec::ReadHeader(Reader& reader) const {
    if (reader.ReadUnit() != Signature) MRaise(MExceptionGeneral, "Invalid UTF8 header.");
}

void MEncoding::UTF16Codec::WriteHeader(Writer& writer) const {
    writer.WriteUnit(Signature);
}

bool MEncoding::UTF16Codec::ReadLine(Reader& reader, MString& line) const {
    line = MString();
    char16_t unit;
    if (!reader.TryReadUnit(unit)) return false;
    do {
        if (unit == '\n' || unit == 0) break;
        if (unit != '\r') line.Append(MChar(unit));
    } while (reader.TryReadUnit(unit));
    return true;
}
