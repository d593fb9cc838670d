#include "ui/image/files/MTGAHeader.h"

#include "foundation/base/MException.h"
#include "streams/basic/MStream.h"
#include "ui/image/MBitmap.h"

namespace {

constexpr int32_t HeaderSize = 18;

bool IsColorSize(int32_t bits) {
    return bits == 24 || bits == 32;
}

}  // namespace

MTGAHeader MTGAHeader::Read(MStream& stream) {
    uint8_t bytes[HeaderSize];
    if (stream.Read(bytes, HeaderSize) != HeaderSize)
        MRaise(MExceptionStreamError, "Invalid file contents. No TGA header present.");
    const auto word = [&](int32_t offset) { return bytes[offset] | bytes[offset + 1] << 8; };
    const MTGAHeader header{bytes[0], bytes[1], bytes[2], word(3),   word(5),
                            bytes[7], word(12), word(14), bytes[16], bytes[17]};
    if (!header.IsKnown()) MRaise(MExceptionStreamError, "Invalid file contents. Invalid TGA header.");
    return header;
}

bool MTGAHeader::IsKnown() const {
    if (int64_t{width} * height > MBitmap::MaximumLoadedPixels || hasMap > 1) return false;
    switch (imageType & ~RunLengthBit) {
    case 1:
        return HasMap() && IsColorSize(mapBits) && pixelBits == 8 && mapFirst + mapCount <= MaximumMapCount;
    case 2: return IsColorSize(pixelBits);
    default: return false;
    }
}
