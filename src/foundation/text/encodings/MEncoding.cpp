#include "foundation/text/encodings/MEncoding.h"

#include "foundation/base/MHashTable.h"
#include "foundation/base/MRaise.h"
#include "foundation/text/encodings/MASCIICodec.h"
#include "foundation/text/encodings/MEncodingReader.h"
#include "foundation/text/encodings/MEncodingTables.h"
#include "foundation/text/encodings/MEncodingWriter.h"
#include "foundation/text/encodings/MTableCodec.h"
#include "foundation/text/encodings/MUTF16Codec.h"
#include "foundation/text/encodings/MUTF8Codec.h"

#include <memory>
#include <vector>

namespace {

/// One codec for each 8-bit set, and all their names.
class TableCodecs {
public:
    TableCodecs() {
        for (const MEncodingTable& table : MEncodingTables) {
            codecs.push_back(std::make_unique<MEncoding::TableCodec>(table));
            for (const char* name : table.names)
                if (name) names.Add(name, codecs.back().get());
        }
    }
    [[nodiscard]] const MEncoding::Codec* Find(const MString& name) const {
        const MEncoding::Codec* const* found = names.Find(name);
        return found ? *found : nullptr;
    }

private:
    std::vector<std::unique_ptr<MEncoding::TableCodec>> codecs;
    MHashTable<MString, const MEncoding::Codec*> names;
};

const MEncoding::Codec* FindTableCodec(const MString& name) {
    static const TableCodecs codecs;
    return codecs.Find(name);
}

}  // namespace

const MEncoding::Codec& MEncoding::GetUTF8Codec() {
    static const UTF8Codec codec;
    return codec;
}

const MEncoding::Codec& MEncoding::FindCodec(const MString& name) {
    static const ASCIICodec ascii;
    static const UTF16Codec utf16;
    if (name.IsEmpty()) return ascii;
    if (name == "utf8" || name == "utf-8") return GetUTF8Codec();
    if (name == "utf16" || name == "utf-16") return utf16;
    if (const Codec* codec = FindTableCodec(name)) return *codec;
    MRaise(MExceptionGeneral, "No codec found for encoding {0}.", name);
}

MString MEncoding::Codec::Decode(const MCHARBuffer& bytes) const {
    return Decode(std::string_view(bytes.Get(), static_cast<size_t>(bytes.GetSize())));
}

void MEncoding::Codec::ReadHeader(Reader& /*reader*/) const {}

void MEncoding::Codec::WriteHeader(Writer& /*writer*/) const {}

bool MEncoding::Codec::ReadLine(Reader& reader, MString& line) const {
    std::string_view bytes;
    if (!reader.ReadLineBytes(bytes)) return false;
    line = Decode(bytes);
    return true;
}

void MEncoding::Codec::WriteText(Writer& writer, const MString& text) const {
    const MCHARBuffer bytes = Encode(text, false);
    writer.WriteBytes({bytes.Get(), static_cast<size_t>(bytes.GetSize())});
}

void MEncoding::Codec::WriteLine(Writer& writer, const MString& text) const {
    MString line = text;
    line.AppendNewline();
    WriteText(writer, line);
}
