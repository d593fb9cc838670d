#include "setup/choices/MLicenceText.h"

#include "foundation/text/MUnicode.h"
#include "foundation/text/encodings/MEncoding.h"

#include <string>

MString MReadLicence(MStream& stream) {
    std::string bytes;
    char block[256];
    int32_t count;
    while ((count = stream.Read(block, sizeof block)) > 0) bytes.append(block, static_cast<size_t>(count));
    if (bytes.starts_with("\xFF\xFE")) {
        MString text = MEncoding::FindCodec("utf-16").Decode(std::string_view(bytes).substr(2));
        text.Replace("\r", MString());
        return text;
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    // To a codec a zero is the end.
    std::erase_if(bytes, [](char byte) { return byte == '\r' || byte == '\0'; });
    return MIsUTF8(bytes) ? MDecodeUTF8Exact(bytes) : MEncoding::FindCodec("windows-1252").Decode(bytes);
}
