#include "ui/drawing/MDrawerToMBitmap.h"

#include "ui/image/MAlphaMask.h"

#include <algorithm>
#include <vector>

namespace {

/// The colours of the columns of `visible` in a gradient over `area`.
std::vector<MColor> GetColumnColors(const MGradient& gradient, const MRect& area, const MRect& visible) {
    std::vector<MColor> colors;
    for (int32_t x = visible.left; x <= visible.right; ++x)
        colors.push_back(gradient.GetColor(x - area.left));
    return colors;
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

bool MDrawerToMBitmap::Prepare() {
    if (!bitmap || bitmap->IsEmpty() || bitmap->IsPaletted()) return false;
    pixels = bitmap->EditPixels();
    return true;
}

void MDrawerToMBitmap::PaintPicture(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows,
                                    uint8_t alpha, MDrawMode mode) {
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

void MDrawerToMBitmap::PaintMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                                 MDrawMode mode) {
    const MRect area = MRect::FromSize(point.x, point.y, part.GetWidth(), part.GetHeight());
    const MRect visible = GetPaintable(area);
    const MPixelRows& operations = MGetPixelRows(mode);
    for (int32_t y = visible.top; y <= visible.bottom; ++y) {
        const uint8_t* row = mask.GetRow(y - area.top + part.top) + (visible.left - area.left + part.left);
        PaintMaskRow(operations, mode, GetPlace(visible.left, y), row, visible.GetWidth(), color);
    }
}

void MDrawerToMBitmap::SetPixel(MPoint point, MColor color) {
    Paint("SetPixel", [&] {
        const MPoint place = Shift(point);
        const MColor written = hasAlphaChannel ? color : color.WithAlpha(255);
        FillPart({place.x, place.y, place.x, place.y}, pixelEffect < 1 ? written : color,
                 pixelEffect < 1 ? MDrawMode::Copy : MDrawMode::Add);
    });
}

void MDrawerToMBitmap::FillPart(const MRect& rect, MColor color, MDrawMode mode) {
    const MRect visible = GetPaintable(rect);
    const MPixelRows& operations = MGetPixelRows(mode);
    for (int32_t y = visible.top; y <= visible.bottom; ++y)
        operations.fill(GetPlace(visible.left, y), visible.GetWidth(), color);
}

void MDrawerToMBitmap::FillGradient(const MRect& rect, const MGradient& gradient, MDrawMode mode) {
    const MRect visible = GetPaintable(rect);
    if (visible.IsEmpty()) return;
    std::vector<MColor> colors;
    if (gradient.IsHorizontal()) colors = GetColumnColors(gradient, rect, visible);
    const MPixelRows& operations = MGetPixelRows(mode);
    for (int32_t y = visible.top; y <= visible.bottom; ++y) {
        MColor* const row = GetPlace(visible.left, y);
        if (gradient.IsHorizontal())
            operations.blit(row, colors.data(), visible.GetWidth(), 255);
        else
            operations.fill(row, visible.GetWidth(), gradient.GetColor(y - rect.top));
    }
}

void MDrawerToMBitmap::PaintRun(const MPixelRows& operations, const MCoverageRun& run, MColor color) const {
    MColor* const row = GetPlace(run.start.x, run.start.y);
    if (run.shares)
        operations.mask(row, run.shares, run.count, color);
    else
        operations.fill(row, run.count, color.WithAlpha(Scale(run.share, color.alpha)));
}

void MDrawerToMBitmap::FillCoverage(const MCoverage& coverage, MColor color, MDrawMode mode) {
    const MPixelRows& operations = MGetPixelRows(mode);
    coverage.ForEachRun([&](const MCoverageRun& run) { PaintRun(operations, run, color); });
}

void MDrawerToMBitmap::FillCoverageGradient(const MCoverage& coverage, const MGradient& gradient,
                                            const MRect& area, MDrawMode mode) {
    const MPixelRows& operations = MGetPixelRows(mode);
    if (!gradient.IsHorizontal())
        return coverage.ForEachRun([&](const MCoverageRun& run) {
            PaintRun(operations, run, gradient.GetColor(run.start.y - area.top));
        });
    const std::vector<MColor> colors = GetColumnColors(gradient, area, coverage.GetArea());
    std::vector<MColor> covered;
    coverage.ForEachRun([&](const MCoverageRun& run) {
        const MColor* const first = &colors[static_cast<size_t>(run.start.x - coverage.GetArea().left)];
        covered.assign(first, first + run.count);
        for (int32_t i = 0; i < run.count; ++i)
            covered[static_cast<size_t>(i)].alpha = Scale(run.GetShare(i), first[i].alpha);
        operations.blit(GetPlace(run.start.x, run.start.y), covered.data(), run.count, 255);
    });
}
