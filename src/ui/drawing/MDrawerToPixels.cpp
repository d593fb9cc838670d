#include "ui/drawing/MDrawerToPixels.h"

#include "foundation/base/MGuard.h"
#include "ui/image/MAlphaMask.h"
#include "ui/text/MTextLayout.h"

#include <algorithm>
#include <string>

namespace {

MAxisMap TileFromStart(int32_t target, int32_t targetLength, int32_t source, int32_t length) {
    return MAxisMap::Tiled(target, targetLength, source, length, 0);
}

}  // namespace

void MDrawerToPixels::Report(const char* operation) const {
    MReportSystemException((std::string(className) + "::" + operation).c_str());
}

int32_t MDrawerToPixels::GetWidth() {
    return width != 0 ? width : GetBounds().GetWidth();
}

int32_t MDrawerToPixels::GetHeight() {
    return height != 0 ? height : GetBounds().GetHeight();
}

void MDrawerToPixels::PaintDirect(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows,
                                  uint8_t alpha, MDrawMode mode) {
    if (source.IsPaletted())
        PaintPicture(source.ToDirect(), columns, rows, alpha, mode);
    else
        PaintPicture(source, columns, rows, alpha, mode);
}

void MDrawerToPixels::PatBlt(const MRect& rect, const MBitmap& source, MPoint offset, uint8_t alpha,
                             MDrawMode mode) {
    Paint("PatBlt", [&] {
        if (source.IsEmpty()) return;
        const MRect area = Shift(rect);
        PaintDirect(source, MAxisMap::Tiled(area.left, area.GetWidth(), 0, source.GetWidth(), offset.x),
                    MAxisMap::Tiled(area.top, area.GetHeight(), 0, source.GetHeight(), offset.y), alpha,
                    mode);
    });
}

void MDrawerToPixels::BitBlt(const MRect& part, const MBitmap& source, MPoint point, uint8_t alpha,
                             MDrawMode mode) {
    Paint("BitBlt", [&] {
        const MRect cut = part.Intersected(source.GetRect());
        if (cut.IsEmpty()) return;
        const MPoint place = Shift(point) + (cut.GetTopLeft() - part.GetTopLeft());
        PaintDirect(source, MAxisMap::Straight(place.x, cut.left, cut.GetWidth()),
                    MAxisMap::Straight(place.y, cut.top, cut.GetHeight()), alpha, mode);
    });
}

void MDrawerToPixels::PaintPart(const char* operation, const MRect& rect, const MBitmap& source,
                                const MRect& part, MapAxis mapColumns, MapAxis mapRows, uint8_t alpha,
                                MDrawMode mode) {
    Paint(operation, [&] {
        const MRect area = Shift(rect);
        const MRect cut = part.Intersected(source.GetRect());
        if (cut.IsEmpty()) return;
        PaintDirect(source, mapColumns(area.left, area.GetWidth(), cut.left, cut.GetWidth()),
                    mapRows(area.top, area.GetHeight(), cut.top, cut.GetHeight()), alpha, mode);
    });
}

void MDrawerToPixels::StretchBlt(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                                 MDrawMode mode) {
    PaintPart("StretchBlt", rect, source, part, MAxisMap::Scaled, MAxisMap::Scaled, alpha, mode);
}

void MDrawerToPixels::StretchBltH(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                                  MDrawMode mode) {
    PaintPart("StretchBltH", rect, source, part, MAxisMap::Scaled, TileFromStart, alpha, mode);
}

void MDrawerToPixels::StretchBltV(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                                  MDrawMode mode) {
    PaintPart("StretchBltV", rect, source, part, TileFromStart, MAxisMap::Scaled, alpha, mode);
}

void MDrawerToPixels::PatBltPart(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                                 MDrawMode mode) {
    PaintPart("PatBlt", rect, source, part, TileFromStart, TileFromStart, alpha, mode);
}

void MDrawerToPixels::AlphaMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                                MDrawMode mode) {
    Paint("AlphaMask", [&] {
        const MRect cut = part.Intersected(mask.GetRect());
        if (!cut.IsEmpty())
            PaintMask(cut, mask, Shift(point) + (cut.GetTopLeft() - part.GetTopLeft()), color, mode);
    });
}

void MDrawerToPixels::AlignedTextOut(const MRect& rect, MFont& font, const MString& text, MColor color,
                                     MTextAlignment alignment) {
    Paint("AlignedTextOut", [&] {
        MTextLayout layout(font, text, Shift(rect), alignment);
        for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);)
            PaintMask(glyph.mask->GetRect(), *glyph.mask, glyph.point, color, GetBlendMode());
    });
}

void MDrawerToPixels::PaintGlyph(const MPlacedGlyph& glyph, MColor color) {
    AlphaMask(glyph.mask->GetRect(), *glyph.mask, glyph.point, color, GetBlendMode());
}
