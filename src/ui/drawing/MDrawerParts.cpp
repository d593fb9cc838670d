#include "foundation/base/MException.h"
#include "foundation/base/MGuard.h"
#include "ui/drawing/MBitmapFill.h"
#include "ui/drawing/MDrawer.h"
#include "ui/image/MAlphaMask.h"

#include <algorithm>

namespace {

constexpr uint8_t WeakestShadow = 11;

}  // namespace

void MDrawer::DrawText(const MRect& rect, MFont& font, const MString& text, MColor color,
                       MTextAlignment alignment) {
    if (color.alpha == 0) return;
    MGuard("MDrawer::AlignedTextOut", [&] {
        const MColor shadow =
            color.Inverted().WithAlpha(static_cast<uint8_t>(color.alpha * textShadowAlpha / 255));
        if (shadow.alpha >= WeakestShadow)
            AlignedTextOut(rect.Shifted({1, 1}), font, text, shadow, alignment);
        AlignedTextOut(rect, font, text, color, alignment);
    });
}

void MDrawer::DrawIcon(int32_t index, MPoint point, MColor color) {
    if (const MAlphaMask* const mask = GetStdIconMask(index)) {
        AlphaMask({0, 0, mask->GetWidth() - 1, mask->GetHeight() - 1}, *mask, point, color,
                  MDrawMode::Overlay);
    } else if (const MBitmap* const bitmap = GetStdIcon(index)) {
        BitBltWhole(*bitmap, point, color.alpha, MDrawMode::Overlay);
    }
}

void MDrawer::PaintBitmapPart(const MRect& rect, const MBitmap& bitmap, const MRect& source, int32_t flags,
                              uint8_t alpha, MDrawMode mode) {
    if (bitmap.IsEmpty() || rect.IsEmpty() || source.IsEmpty() || (flags & PartKept)) return;
    switch (static_cast<MBitmapFill>(flags)) {
    case MBitmapFill::Stretch: return StretchBlt(rect, bitmap, source, alpha, mode);
    case MBitmapFill::HPattern: return StretchBltH(rect, bitmap, source, alpha, mode);
    case MBitmapFill::VPattern: return StretchBltV(rect, bitmap, source, alpha, mode);
    case MBitmapFill::Pattern: return PatBltPart(rect, bitmap, source, alpha, mode);
    }
    MRaise(MExceptionGeneral, "Invalid bitmap layout flags specified for processing.");
}

namespace {

/// One axis of a frame, cut into its beginning, its middle and its end. The outer two have the size of a
/// corner, or half of what there is.
struct Thirds {
    Thirds(int32_t first, int32_t last, int32_t begin, int32_t end)
        : first{first, first + begin, last - end + 1}, last{first + begin - 1, last - end, last} {}

    int32_t first[3];
    int32_t last[3];
};

MRect GetCell(const Thirds& columns, const Thirds& rows, int32_t column, int32_t row) {
    return {columns.first[column], rows.first[row], columns.last[column], rows.last[row]};
}

}  // namespace

void MDrawer::PaintCornered(const MRect& rect, const MBitmap& bitmap, const MRect& source, MPoint cornerSize,
                            int32_t edgeFlags, int32_t centerFlags, uint8_t alpha, MDrawMode mode) {
    if (rect.IsEmpty() || source.IsEmpty()) return;
    if (rect.GetWidth() == source.GetWidth() && rect.GetHeight() == source.GetHeight())
        return BitBlt(source, bitmap, rect.GetTopLeft(), alpha, mode);

    const int32_t left =
        std::clamp(cornerSize.x, 0, std::min(rect.GetWidth() + 1, source.GetWidth() + 1) / 2);
    const int32_t right = std::clamp(cornerSize.x, 0, std::min(rect.GetWidth(), source.GetWidth()) / 2);
    const int32_t top =
        std::clamp(cornerSize.y, 0, std::min(rect.GetHeight() + 1, source.GetHeight() + 1) / 2);
    const int32_t bottom = std::clamp(cornerSize.y, 0, std::min(rect.GetHeight(), source.GetHeight()) / 2);
    const Thirds columns(rect.left, rect.right, left, right);
    const Thirds rows(rect.top, rect.bottom, top, bottom);
    const Thirds sourceColumns(source.left, source.right, left, right);
    const Thirds sourceRows(source.top, source.bottom, top, bottom);
    for (int32_t row = 0; row < 3; ++row) {
        for (int32_t column = 0; column < 3; ++column) {
            const MRect cell = GetCell(columns, rows, column, row);
            const MRect part = GetCell(sourceColumns, sourceRows, column, row);
            const bool isCorner = row != 1 && column != 1;
            const bool isCenter = row == 1 && column == 1;
            if (cell.IsEmpty() || part.IsEmpty()) continue;
            if (isCorner)
                BitBlt(part, bitmap, cell.GetTopLeft(), alpha, mode);
            else
                PaintBitmapPart(cell, bitmap, part, isCenter ? centerFlags : edgeFlags, alpha, mode);
        }
    }
}
