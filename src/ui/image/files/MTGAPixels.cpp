#include "ui/image/files/MTGAPixels.h"

#include "streams/basic/MStream.h"

#include <algorithm>

namespace {

constexpr int32_t RepeatBit = 0x80;
constexpr int32_t MaximumPixelSize = 4;

MColor ReadColor(const uint8_t* bytes, int32_t size) {
    return {bytes[0], bytes[1], bytes[2], size == 4 ? bytes[3] : uint8_t{255}};
}

}  // namespace

MTGAPixels::MTGAPixels(MStream& stream, const MTGAHeader& header)
    : stream(stream),
      isRunLength(header.IsRunLength()),
      isMapped(header.IsMapped()),
      pixelSize(header.pixelBits / 8) {
    if (isMapped) ReadMap(header);
}

void MTGAPixels::ReadMap(const MTGAHeader& header) {
    const int32_t entrySize = header.GetMapEntrySize();
    MColor* entry = map.data() + header.mapFirst;
    uint8_t bytes[MaximumPixelSize];
    for (int32_t i = 0; i < header.mapCount; ++i) {
        stream.ReadRequired(bytes, entrySize);
        *entry++ = ReadColor(bytes, entrySize);
    }
}

void MTGAPixels::Read(MColor* pixels, int32_t count) {
    if (isRunLength) {
        ReadPackets(pixels, count);
        return;
    }
    while (count > 0) {
        const int32_t part = std::min(count, MaximumPacket);
        ReadPlain(pixels, part);
        pixels += part;
        count -= part;
    }
}

void MTGAPixels::ReadPackets(MColor* pixels, int32_t count) {
    while (count > 0) {
        const int32_t head = static_cast<uint8_t>(stream.ReadInt8());
        const int32_t part = std::min((head & ~RepeatBit) + 1, count);
        ReadPlain(pixels, head & RepeatBit ? 1 : part);
        if (head & RepeatBit) std::fill_n(pixels + 1, part - 1, *pixels);
        pixels += part;
        count -= part;
    }
}

void MTGAPixels::ReadPlain(MColor* pixels, int32_t count) {
    uint8_t bytes[MaximumPacket * MaximumPixelSize];
    stream.ReadRequired(bytes, count * pixelSize);
    const uint8_t* pixel = bytes;
    for (int32_t i = 0; i < count; ++i, pixel += pixelSize)
        pixels[i] = isMapped ? map[*pixel] : ReadColor(pixel, pixelSize);
}
