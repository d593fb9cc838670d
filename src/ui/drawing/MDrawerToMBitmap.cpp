#include "ui/drawing/MDrawerToMBitmap.h"

#include "ui/image/MAlphaMask.h"
#include "ui/text/MTextLayout.h"

#include <algorithm>
#include <vector>

namespace {

/// A picture and where it goes, with what of it does not exist cut away.
struct CutPicture {
    CutPicture(const MRect& part, const MBaseBitmap& source, MPoint point)
        : part(part.Intersected(source.GetRect())),
          point(point + (this->part.GetTopLeft() - part.GetTopLeft())) {}

    MRect part;
    MPoint point;
};

MAxisMap TileFromStart(int32_t target, int32_t targetLength, int32_t source, int32_t length) {
    return MAxisMap::Tiled(target, targetLength, source, length, 0);
}

/// Fills a row of pixels with what `columns` tells from `first` on, whose pixels of the source repeat
/// themselves.
void RepeatTile(std::vector<MColor>& pixels, const MColor* source, const MAxisMap& columns, int32_t first) {
    const auto length = std::min(static_cast<size_t>(columns.GetLength()), pixels.size());
    for (size_t i = 0; i < length; ++i)
        pixels[i] = source[columns.GetSource(first + static_cast<int32_t>(i))];
    for (size_t filled = length; filled < pixels.size(); filled *= 2)
        std::copy_n(pixels.begin(), std::min(filled, pixels.size() - filled), pixels.begin() + filled);
}

/// Paints through a row of a mask. What is not covered stays, although the mode "Overlay" would give
/// transparent pixels the colour.
void PaintMaskRow(const MPixelRows& operations, MDrawMode mode, MColor* target, const uint8_t* mask,
                  int32_t count, MColor color) {
    if (mode != MDrawMode::Overlay) return operations.mask(target, mask, count, color);
    const uint8_t* const last = mask + count;
    const auto isCovered = [](uint8_t share) { return share != 0; };
    for (const uint8_t* run = mask; (run = std::find_if(run, last, isCovered)) != last;) {
        const uint8_t* const end = std::find(run, last, uint8_t{0});
        operations.mask(target + (run - mask), run, static_cast<int32_t>(end - run), color);
        run = end;
    }
}

/// Paints the pixels from `first` to `last` of a row.
void PaintRow(const MPixelRows& operations, MColor* target, const MColor* source, const MAxisMap& columns,
              int32_t first, int32_t last, uint8_t alpha) {
    if (!columns.IsScaled()) {
        for (int32_t x = first; x <= last;) {
            const int32_t count = std::min(columns.GetRunLength(x), last - x + 1);
            operations.blit(target + x, source + columns.GetSource(x), count, alpha);
            x += count;
        }
        return;
    }
    // Within a piece the positions stay below 2^31.
    const uint32_t step = columns.GetStep();
    const int32_t most = step > 0 ? static_cast<int32_t>(0x7FFF0000u / step) + 1 : last - first + 1;
    for (int32_t x = first; x <= last;) {
        const int32_t count = std::min(most, last - x + 1);
        const int64_t position = columns.GetPosition(x);
        operations.stretch(target + x, source + (position >> 16), static_cast<uint32_t>(position & 0xFFFF),
                           step, count, alpha);
        x += count;
    }
}

}  // namespace

void MDrawerToMBitmap::SetBitmap(MBitmap* newBitmap) {
    bitmap = newBitmap;
    clip = bitmap ? bitmap->GetRect() : MRect();
    hasAlphaChannel = !bitmap || !bitmap->IsOpaque();
}

int32_t MDrawerToMBitmap::GetWidth() {
    return width != 0 || !bitmap ? width : bitmap->GetWidth();
}

int32_t MDrawerToMBitmap::GetHeight() {
    return height != 0 || !bitmap ? height : bitmap->GetHeight();
}

MRect MDrawerToMBitmap::GetClip() {
    return clip.Shifted(MPoint() - translation);
}

void MDrawerToMBitmap::SetClip(const MRect& rect) {
    clip = Shift(rect);
}

bool MDrawerToMBitmap::PrepareBitmap() {
    if (!bitmap || bitmap->IsEmpty() || bitmap->IsPaletted()) return false;
    pixels = bitmap->EditPixels();
    return true;
}

MRect MDrawerToMBitmap::GetPaintable(const MRect& rect) const {
    return rect.Intersected(clip).Intersected(bitmap->GetRect());
}

void MDrawerToMBitmap::PaintPicture(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows,
                                    uint8_t alpha, MDrawMode mode) {
    if (source.IsPaletted()) return PaintPicture(source.ToDirect(), columns, rows, alpha, mode);
    if (&source == bitmap) {
        // It is read as it was before.
        const MBitmap copy = source;
        pixels = bitmap->EditPixels();
        return PaintPicture(copy, columns, rows, alpha, mode);
    }
    const MRect visible =
        GetPaintable({columns.GetFirst(), rows.GetFirst(), columns.GetLast(), rows.GetLast()});
    if (visible.IsEmpty()) return;
    const MPixelRows& operations = MGetPixelRows(mode);
    // Narrow tiles are put together first, once for each row of the source.
    constexpr int32_t NarrowTile = 64;
    const bool isNarrow =
        !columns.IsScaled() && columns.GetLength() < NarrowTile && columns.GetLength() < visible.GetWidth();
    std::vector<MColor> tiles(isNarrow ? static_cast<size_t>(visible.GetWidth()) : 0);
    const MColor* tiledRow = nullptr;
    for (int32_t y = visible.top; y <= visible.bottom; ++y) {
        MColor* target = pixels + int64_t{bitmap->GetWidth()} * y;
        const MColor* row = source.GetRow(rows.GetSource(y));
        if (!isNarrow) {
            PaintRow(operations, target, row, columns, visible.left, visible.right, alpha);
            continue;
        }
        if (row != tiledRow) RepeatTile(tiles, row, columns, visible.left);
        tiledRow = row;
        operations.blit(target + visible.left, tiles.data(), visible.GetWidth(), alpha);
    }
}

void MDrawerToMBitmap::PatBlt(const MRect& rect, const MBitmap& source, MPoint offset, uint8_t alpha,
                              MDrawMode mode) {
    Paint("MDrawerToMBitmap::PatBlt", [&] {
        if (source.IsEmpty()) return;
        const MRect area = Shift(rect);
        PaintPicture(source, MAxisMap::Tiled(area.left, area.GetWidth(), 0, source.GetWidth(), offset.x),
                     MAxisMap::Tiled(area.top, area.GetHeight(), 0, source.GetHeight(), offset.y), alpha,
                     mode);
    });
}

void MDrawerToMBitmap::BitBlt(const MRect& part, const MBitmap& source, MPoint point, uint8_t alpha,
                              MDrawMode mode) {
    Paint("MDrawerToMBitmap::BitBlt", [&] {
        const CutPicture cut(part, source, Shift(point));
        if (cut.part.IsEmpty()) return;
        PaintPicture(source, MAxisMap::Straight(cut.point.x, cut.part.left, cut.part.GetWidth()),
                     MAxisMap::Straight(cut.point.y, cut.part.top, cut.part.GetHeight()), alpha, mode);
    });
}

void MDrawerToMBitmap::PaintPart(const char* name, const MRect& rect, const MBitmap& source,
                                 const MRect& part, MapAxis mapColumns, MapAxis mapRows, uint8_t alpha,
                                 MDrawMode mode) {
    Paint(name, [&] {
        const MRect area = Shift(rect);
        const MRect cut = part.Intersected(source.GetRect());
        if (cut.IsEmpty()) return;
        PaintPicture(source, mapColumns(area.left, area.GetWidth(), cut.left, cut.GetWidth()),
                     mapRows(area.top, area.GetHeight(), cut.top, cut.GetHeight()), alpha, mode);
    });
}

void MDrawerToMBitmap::StretchBlt(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                                  MDrawMode mode) {
    PaintPart("MDrawerToMBitmap::StretchBlt", rect, source, part, MAxisMap::Scaled, MAxisMap::Scaled, alpha,
              mode);
}

void MDrawerToMBitmap::StretchBltH(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                                   MDrawMode mode) {
    PaintPart("MDrawerToMBitmap::StretchBltH", rect, source, part, MAxisMap::Scaled, TileFromStart, alpha,
              mode);
}

void MDrawerToMBitmap::StretchBltV(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                                   MDrawMode mode) {
    PaintPart("MDrawerToMBitmap::StretchBltV", rect, source, part, TileFromStart, MAxisMap::Scaled, alpha,
              mode);
}

void MDrawerToMBitmap::PatBltPart(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                                  MDrawMode mode) {
    PaintPart("MDrawerToMBitmap::PatBlt", rect, source, part, TileFromStart, TileFromStart, alpha, mode);
}

void MDrawerToMBitmap::AlphaMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                                 MDrawMode mode) {
    Paint("MDrawerToMBitmap::AlphaMask", [&] { PaintMask(part, mask, Shift(point), color, mode); });
}

void MDrawerToMBitmap::PaintMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                                 MDrawMode mode) {
    const CutPicture cut(part, mask, point);
    const MRect area = MRect::FromSize(cut.point.x, cut.point.y, cut.part.GetWidth(), cut.part.GetHeight());
    const MRect visible = GetPaintable(area);
    const MPixelRows& operations = MGetPixelRows(mode);
    for (int32_t y = visible.top; y <= visible.bottom; ++y) {
        const uint8_t* row =
            mask.GetRow(y - area.top + cut.part.top) + (visible.left - area.left + cut.part.left);
        PaintMaskRow(operations, mode, pixels + int64_t{bitmap->GetWidth()} * y + visible.left, row,
                     visible.GetWidth(), color);
    }
}

void MDrawerToMBitmap::AlignedTextOut(const MRect& rect, MFont& font, const MString& text, MColor color,
                                      MTextAlignment alignment) {
    Paint("MDrawerToMBitmap::AlignedTextOut", [&] {
        MTextLayout layout(font, text, Shift(rect), alignment);
        for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);)
            PaintMask(glyph.mask->GetRect(), *glyph.mask, glyph.point, color, GetBlendMode());
    });
}

void MDrawerToMBitmap::PaintGlyph(const MPlacedGlyph& glyph, MColor color) {
    AlphaMask(glyph.mask->GetRect(), *glyph.mask, glyph.point, color, GetBlendMode());
}
