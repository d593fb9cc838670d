#include "setup/choices/MLicenceText.h"

#include "foundation/text/MUnicode.h"

#include <string>

MString MReadLicence(MStream& stream) {
    std::string bytes;
    char block[256];
    int32_t count;
    while ((count = stream.Read(block, sizeof block)) > 0) bytes.append(block, static_cast<size_t>(count));
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    std::erase(bytes, '\r');
    if (MIsUTF8(bytes)) return MDecodeUTF8Exact(bytes);
    std::string encoded;
    for (const char byte : bytes) {
        const auto character = static_cast<unsigned char>(byte);
        if (character >= 0x80) encoded += static_cast<char>(0xC0 | character >> 6);
        encoded += static_cast<char>(character >= 0x80 ? 0x80 | (character & 0x3F) : character);
    }
    return MDecodeUTF8Exact(encoded);
}
