#include "ui/image/files/MTGAReader.h"

#include "foundation/base/MRaise.h"
#include "streams/basic/MStream.h"
#include "ui/image/MBitmap.h"
#include "ui/image/files/MTGAHeader.h"
#include "ui/image/files/MTGAPixels.h"

#include <algorithm>

namespace {

void Skip(MStream& stream, int32_t count) {
    uint8_t piece[256];
    while (count > 0) {
        const int32_t size = std::min<int32_t>(count, sizeof piece);
        stream.ReadRequired(piece, size);
        count -= size;
    }
}

void FlipRows(MBitmap& bitmap) {
    const int32_t width = bitmap.GetWidth();
    MColor* upper = bitmap.EditPixels();
    MColor* lower = upper + int64_t{width} * (bitmap.GetHeight() - 1);
    for (; upper < lower; upper += width, lower -= width) std::swap_ranges(upper, upper + width, lower);
}

void MirrorRows(MBitmap& bitmap) {
    MColor* const pixels = bitmap.EditPixels();
    const int64_t width = bitmap.GetWidth();
    for (int32_t y = 0; y < bitmap.GetHeight(); ++y)
        std::reverse(pixels + width * y, pixels + width * (y + 1));
}

}  // namespace

void MReadTGA(MStream& stream, MBitmap& bitmap) {
    const MTGAHeader header = MTGAHeader::Read(stream);
    bitmap.Clear();
    if (header.width < 1 || header.height < 1) return;

    Skip(stream, header.identifierLength);
    // A map beside direct pixels is of no use, and of any size.
    if (header.HasMap() && !header.IsMapped()) Skip(stream, header.mapCount * header.GetMapEntrySize());
    MTGAPixels pixels(stream, header);
    bitmap.CreateUnfilled(header.width, header.height);
    pixels.Read(bitmap.EditPixels(), header.width * header.height);
    if (!header.IsFromTop()) FlipRows(bitmap);
    if (header.IsFromRight()) MirrorRows(bitmap);
}
