#include "ui/text/MGlyphMask.h"

#include <algorithm>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BITMAP_H

namespace {

/// A bitmap of FreeType's own, freed at the end.
class OwnBitmap {
public:
    explicit OwnBitmap(FT_Library library) : library(library) { FT_Bitmap_Init(&bitmap); }
    OwnBitmap(const OwnBitmap&) = delete;
    OwnBitmap& operator=(const OwnBitmap&) = delete;
    ~OwnBitmap() { FT_Bitmap_Done(library, &bitmap); }

    FT_Bitmap bitmap;

private:
    FT_Library library;
};

/// The pitch leads from a row to the one below, also where rows are stored from the bottom.
const uint8_t* GetTopRow(const FT_Bitmap& bitmap) {
    const auto last = static_cast<int64_t>(bitmap.rows) - 1;
    return bitmap.pitch < 0 ? bitmap.buffer - bitmap.pitch * last : bitmap.buffer;
}

std::unique_ptr<MAlphaMask> CopyRows(const FT_Bitmap& bitmap) {
    auto mask =
        std::make_unique<MAlphaMask>(static_cast<int32_t>(bitmap.width), static_cast<int32_t>(bitmap.rows));
    const uint8_t* row = GetTopRow(bitmap);
    for (int32_t y = 0; y < mask->GetHeight(); ++y, row += bitmap.pitch)
        std::copy_n(row, mask->GetWidth(), mask->EditRow(y));
    return mask;
}

/// Spreads a scale of few greys over the whole range of coverage.
void SpreadGreys(MAlphaMask& mask, int32_t greys) {
    uint8_t* bytes = mask.EditBytes();
    const int64_t count = int64_t{mask.GetWidth()} * mask.GetHeight();
    std::transform(bytes, bytes + count, bytes,
                   [greys](uint8_t grey) { return static_cast<uint8_t>(grey * 255 / (greys - 1)); });
}

}  // namespace

std::unique_ptr<MAlphaMask> MMakeGlyphMask(FT_LibraryRec_* library, const FT_Bitmap_& bitmap) {
    if (bitmap.width == 0 || bitmap.rows == 0 || !bitmap.buffer) return nullptr;
    if (bitmap.pixel_mode == FT_PIXEL_MODE_GRAY) return CopyRows(bitmap);
    // Pictures of a few sizes may be embedded in a font, with less than 8 bits a pixel.
    OwnBitmap converted(library);
    if (FT_Bitmap_Convert(library, &bitmap, &converted.bitmap, 1)) return nullptr;
    auto mask = CopyRows(converted.bitmap);
    if (const int32_t greys = converted.bitmap.num_grays; greys > 1 && greys < 256) SpreadGreys(*mask, greys);
    return mask;
}
