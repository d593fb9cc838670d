// What the primitives become for OpenGL: rectangles of one texture.

#include "ui/image/MAlphaMask.h"
#include "ui/opengl/MDrawerOpenGL.h"
#include "ui/opengl/MOpenGLColors.h"
#include "ui/opengl/MOpenGLSegments.h"
#include "ui/opengl/MOpenGLTexture.h"

#include <algorithm>
#include <optional>

void MDrawerOpenGL::SetPixel(MPoint point, MColor color) {
    Paint("SetPixel", [&] {
        const MPoint place = Shift(point);
        FillPart({place.x, place.y, place.x, place.y}, color, MDrawMode::Copy);
    });
}

namespace {

/// A colour that a texture, or the way of combining, makes something else of.
MColor ToPlain(MColor color, MDrawMode mode) {
    return mode == MDrawMode::Copy ? color : MOpenGLColors::GetWeakened(color);
}

}  // namespace

/// Fills pixels that all may be painted.
void MDrawerOpenGL::DrawSpot(const MRect& visible, MColor color, MDrawMode mode) {
    const bool isNothing = mode == MDrawMode::None || (color.alpha == 0 && mode != MDrawMode::Copy);
    if (visible.IsEmpty() || isNothing) return;
    MOpenGLMasks& masks = device->masks;
    device->batch.Begin(masks.GetTexture(), mode);
    const float spot = MOpenGLMasks::WholeSpot / static_cast<float>(masks.GetSize());
    device->batch.Add(visible, {spot, spot, spot, spot},
                      MOpenGLColors::IsBlending(mode) ? MOpenGLColors::GetBlended(color)
                                                      : ToPlain(color, mode));
}

void MDrawerOpenGL::FillPart(const MRect& rect, MColor color, MDrawMode mode) {
    DrawSpot(GetPaintable(rect), color, mode);
}

void MDrawerOpenGL::FillGradient(const MRect& rect, const MGradient& gradient, MDrawMode mode) {
    const MRect visible = GetPaintable(rect);
    if (gradient.IsHorizontal()) {
        for (int32_t x = visible.left; x <= visible.right; ++x)
            DrawSpot({x, visible.top, x, visible.bottom}, gradient.GetColor(x - rect.left), mode);
    } else {
        for (int32_t y = visible.top; y <= visible.bottom; ++y)
            DrawSpot({visible.left, y, visible.right, y}, gradient.GetColor(y - rect.top), mode);
    }
}

void MDrawerOpenGL::FillCoverage(const MCoverage& coverage, MColor color, MDrawMode mode) {
    // Equal runs below each other, as of the inside of a frame, are one rectangle.
    MRect even;
    uint8_t evenShare = 0;
    const auto drawEven = [&] { DrawSpot(even, color.WithAlpha(Scale(evenShare, color.alpha)), mode); };
    coverage.ForEachRun([&](const MCoverageRun& run) {
        const MPoint start = run.start;
        if (run.shares) {
            for (int32_t i = 0; i < run.count; ++i)
                DrawSpot({start.x + i, start.y, start.x + i, start.y},
                         color.WithAlpha(Scale(run.shares[i], color.alpha)), mode);
            return;
        }
        const MRect row = MRect::FromSize(start.x, start.y, run.count, 1);
        const bool isNext = row.left == even.left && row.right == even.right && row.top == even.bottom + 1;
        if (!isNext || run.share != evenShare) {
            drawEven();
            even = row;
            evenShare = run.share;
        }
        even.bottom = row.bottom;
    });
    drawEven();
}

void MDrawerOpenGL::FillCoverageGradient(const MCoverage& coverage, const MGradient& gradient,
                                         const MRect& area, MDrawMode mode) {
    const bool isHorizontal = gradient.IsHorizontal();
    const auto draw = [&](MPoint start, int32_t count, uint8_t share) {
        const MColor color = gradient.GetColor(isHorizontal ? start.x - area.left : start.y - area.top);
        DrawSpot(MRect::FromSize(start.x, start.y, count, 1), color.WithAlpha(Scale(share, color.alpha)),
                 mode);
    };
    coverage.ForEachRun([&](const MCoverageRun& run) {
        if (!run.shares && !isHorizontal) draw(run.start, run.count, run.share);
        for (int32_t i = 0; run.shares && i < run.count; ++i)
            draw(run.start + MPoint{i, 0}, 1, run.shares[i]);
    });
    if (!isHorizontal) return;
    // What lies between the edges takes its colours from one row of them.
    const MRect& covered = coverage.GetArea();
    MBitmap colors;
    colors.CreateUnfilled(covered.GetWidth(), 1);
    for (int32_t x = 0; x < colors.GetWidth(); ++x)
        colors.EditPixels()[x] = gradient.GetColor(covered.left + x - area.left);
    coverage.ForEachRun([&](const MCoverageRun& run) {
        const MPoint start = run.start;
        if (!run.shares)
            PaintPicture(colors, MAxisMap::Straight(start.x, start.x - covered.left, run.count),
                         MAxisMap::Straight(start.y, 0, 1), run.share, mode);
    });
}

void MDrawerOpenGL::DrawTiles(const MOpenGLDescriptor& picture, const MRect& sourceSize,
                              const MAxisMap& columns, const MAxisMap& rows, MColor color, MDrawMode mode) {
    const MRect visible =
        GetPaintable({columns.GetFirst(), rows.GetFirst(), columns.GetLast(), rows.GetLast()});
    if (visible.IsEmpty()) return;
    const int32_t tileSize = picture.GetTileSize();
    const MPoint first = picture.GetTile(0, 0).GetSize();
    const bool repeats = first.x == sourceSize.GetWidth() && first.y == sourceSize.GetHeight();
    const MOpenGLSegments across(columns, visible.left, visible.right, sourceSize.GetWidth(), tileSize,
                                 repeats);
    const MOpenGLSegments down(rows, visible.top, visible.bottom, sourceSize.GetHeight(), tileSize, repeats);
    for (const MOpenGLSegment& row : down) {
        for (const MOpenGLSegment& column : across) {
            const MOpenGLTexture& tile = picture.GetTile(column.tile, row.tile);
            const MRect& source = tile.GetSource();
            const auto toTexture = [](double place, int32_t start, int32_t length) {
                return static_cast<float>((place - start) / length);
            };
            const MPoint texels = tile.GetSize();
            device->batch.Begin(tile.GetName(), mode);
            device->batch.Add(
                {column.first, row.first, column.last, row.last},
                {toTexture(column.from, source.left, texels.x), toTexture(row.from, source.top, texels.y),
                 toTexture(column.to, source.left, texels.x), toTexture(row.to, source.top, texels.y)},
                color);
        }
    }
}

void MDrawerOpenGL::PaintPicture(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows,
                                 uint8_t alpha, MDrawMode mode) {
    const bool isNothing = mode == MDrawMode::None || (alpha == 0 && mode != MDrawMode::Copy);
    if (isNothing) return;
    // What is made weaker as a whole is blended with other alphas than it has.
    const bool isBlended = MOpenGLColors::IsBlending(mode) && alpha == 255;
    const auto form = isBlended ? MOpenGLTexture::Form::Blended : MOpenGLTexture::Form::Plain;
    const MColor whole = MColor::FromRGB(255, 255, 255, alpha);
    if (const MOpenGLDescriptor* const picture = MOpenGLDescriptor::Get(*device, source, form))
        DrawTiles(*picture, source.GetRect(), columns, rows, isBlended ? whole : ToPlain(whole, mode), mode);
}

void MDrawerOpenGL::PaintMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                              MDrawMode mode) {
    const MRect visible = GetPaintable(MRect::FromSize(point.x, point.y, part.GetWidth(), part.GetHeight()));
    const bool isNothing = mode == MDrawMode::None || (color.alpha == 0 && mode != MDrawMode::Copy);
    if (visible.IsEmpty() || isNothing) return;
    if (std::max(mask.GetWidth(), mask.GetHeight()) > MOpenGLMasks::LargestMask) {
        if (const MOpenGLDescriptor* const picture = MOpenGLDescriptor::Get(*device, mask))
            DrawTiles(*picture, mask.GetRect(), MAxisMap::Straight(point.x, part.left, part.GetWidth()),
                      MAxisMap::Straight(point.y, part.top, part.GetHeight()), ToPlain(color, mode), mode);
        return;
    }
    MOpenGLMasks& masks = device->masks;
    const uint32_t texture = masks.GetTexture();
    std::optional<MPoint> place = masks.Find(mask);
    if (!place) {
        device->batch.Flush();
        masks.Clear();
        place = masks.Find(mask);
        if (!place) return;
    }
    const MRect shown = visible.Shifted(*place + part.GetTopLeft() - point);
    const float unit = 1 / static_cast<float>(masks.GetSize());
    device->batch.Begin(texture, mode);
    device->batch.Add(visible,
                      {static_cast<float>(shown.left) * unit, static_cast<float>(shown.top) * unit,
                       static_cast<float>(shown.right + 1) * unit,
                       static_cast<float>(shown.bottom + 1) * unit},
                      ToPlain(color, mode));
}
