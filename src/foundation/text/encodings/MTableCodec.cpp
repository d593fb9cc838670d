#include "foundation/text/encodings/MTableCodec.h"

MString MEncoding::TableCodec::Decode(std::string_view bytes) const {
    MString text;
    char16_t* const first = text.Resize(static_cast<int32_t>(bytes.size()));
    char16_t* target = first;
    for (const char byte : bytes.substr(0, bytes.find('\0'))) {
        const auto value = static_cast<uint8_t>(byte);
        const char16_t unit = value < 128 ? value : table.units[value - 128];
        if (unit != 0) *target++ = unit;
    }
    text.Resize(static_cast<int32_t>(target - first));
    return text;
}

MCHARBuffer MEncoding::TableCodec::Encode(const MString& text, bool terminate) const {
    std::call_once(isReverseMapMade, [this] {
        for (int32_t i = 0; i < MEncodingTable::UnitCount; ++i)
            if (table.units[i] != 0) reverseMap.Add(table.units[i], static_cast<char>(i + 128));
    });
    MCHARBuffer buffer(text.GetLength() + 1);
    char* const first = buffer.Edit();
    char* target = first;
    for (int32_t i = 0; i < text.GetLength(); ++i) {
        const MChar unit = text[i];
        if (unit < 128)
            *target++ = unit.ToNarrow();
        else if (const char* byte = reverseMap.Find(unit))
            *target++ = *byte;
    }
    if (terminate) *target++ = 0;
    buffer.ResizeCount(static_cast<int32_t>(target - first));
    return buffer;
}
