#pragma once

#include "foundation/base/MGuard.h"
#include "ui/drawing/MAxisMap.h"
#include "ui/drawing/MCoverage.h"
#include "ui/drawing/MDrawerTarget.h"
#include "ui/image/pixels/MPixelRows.h"

/// Paints into a bitmap, by the processor alone. All bytes are the same on every platform.
///
/// Without a bitmap, or with an empty or a paletted one, nothing is painted. Operations without a mode blend,
/// and where the bitmap's alpha counts fill what is transparent: "Overlay", else "Alphablend". What a mask or
/// a shape does not cover stays as it is; only `AlphaMask` in the mode "Copy" writes all pixels.
class MDrawerToMBitmap : public MDrawerTarget {
public:
    MDrawerToMBitmap() = default;
    explicit MDrawerToMBitmap(MBitmap& bitmap) { SetBitmap(&bitmap); }

    /// The bitmap outlives the drawer; null for none. The clip becomes the whole bitmap, and the alpha of one
    /// that is opaque does not count.
    void SetBitmap(MBitmap* newBitmap);

    [[nodiscard]] int32_t GetWidth() override;
    [[nodiscard]] int32_t GetHeight() override;
    [[nodiscard]] MRect GetClip() override;
    void SetClip(const MRect& rect) override;

    void PatBlt(const MRect& rect, const MBitmap& source, MPoint offset, uint8_t alpha,
                MDrawMode mode) override;
    void BitBlt(const MRect& part, const MBitmap& source, MPoint point, uint8_t alpha,
                MDrawMode mode) override;
    void AlphaMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                   MDrawMode mode) override;
    void StretchBlt(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                    MDrawMode mode) override;
    void StretchBltH(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                     MDrawMode mode) override;
    void StretchBltV(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                     MDrawMode mode) override;
    void AlignedTextOut(const MRect& rect, MFont& font, const MString& text, MColor color,
                        MTextAlignment alignment) override;

    void SetPixel(MPoint point, MColor color) override;
    void Line(MPoint from, MPoint to, MColor color) override;
    void SetPixelF(MPointF point, MColor color) override;
    void LineF(MPointF from, MPointF to, MColor color) override;
    void ResetPixelEffect() override { pixelEffect = 0; }

    void Rectangle(const MRect& rect, MColor color, MDrawMode mode) override;
    void FillRectangle(const MRect& rect, MColor color, MDrawMode mode) override;
    void FillRectangleGradient(const MRect& rect, MColor from, MColor to, MGradientDirection direction,
                               MDrawMode mode) override;
    void RoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) override;
    void FillRoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) override;
    void Circle(MPointF center, double radius, MColor color, MDrawMode mode) override;
    void FillCircle(MPointF center, double radius, MColor color, MDrawMode mode) override;
    void FillTriangle(MPointF p1, MPointF p2, MPointF p3, MColor color, MDrawMode mode) override;

    void FillVerticalColumn(int32_t x, double top, double bottom, MColor color) override;
    void FillHorizontalRow(int32_t y, double left, double right, MColor color) override;
    void PaintPolyLine(const PointList& points, MColor color) override;
    void PaintPolygon(const PointList& points, MColor color) override;
    void PaintHorizontalPolyLine(int32_t firstX, const ValueList& values, MColor color) override;
    void PaintHorizontalGraph(int32_t firstX, const ValueList& values, double baseY, MColor color) override;
    void PaintHorizontalGraph(int32_t firstX, const ValueList& upper, const ValueList& lower,
                              MColor color) override;
    void Flush() override {}

    void PaintGlyph(const MPlacedGlyph& glyph, MColor color) override;
    void PatBltPart(const MRect& rect, const MBitmap& source, const MRect& part, uint8_t alpha,
                    MDrawMode mode) override;
    void FillOutlines(std::span<const MOutlines::Outline> outlines, MColor color, MDrawMode mode) override;
    void FillOutlinesGradient(std::span<const MOutlines::Outline> outlines, const MRect& rect, MColor from,
                              MColor to, MGradientDirection direction, MDrawMode mode) override;

    /// Whether the bitmap's alpha counts, as that of a picture does. It does not on what is shown (see
    /// `MDrawer`).
    bool hasAlphaChannel = true;
    /// Below 1 `SetPixel` writes its colour as it is, with its alpha if that counts, else with 255, and
    /// `Line` blends; from 1 on both add, so that lines that cross glow.
    int32_t pixelEffect = 0;

private:
    /// Runs a primitive behind its boundary, if there is something to paint on.
    template <class Body>
    void Paint(const char* name, Body body) {
        MGuard(name, [&] {
            if (PrepareBitmap()) body();
        });
    }
    [[nodiscard]] bool PrepareBitmap();
    [[nodiscard]] MRect GetPaintable(const MRect& rect) const;
    [[nodiscard]] MDrawMode GetBlendMode() const {
        return hasAlphaChannel ? MDrawMode::Overlay : MDrawMode::Alphablend;
    }

    void PaintPicture(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows, uint8_t alpha,
                      MDrawMode mode);
    using MapAxis = MAxisMap (*)(int32_t target, int32_t targetLength, int32_t source, int32_t length);
    void PaintPart(const char* name, const MRect& rect, const MBitmap& source, const MRect& part,
                   MapAxis mapColumns, MapAxis mapRows, uint8_t alpha, MDrawMode mode);
    void FillPart(const MRect& rect, MColor color, MDrawMode mode);
    void PaintMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color, MDrawMode mode);
    [[nodiscard]] MCoverage GetCoverage(std::span<const MOutlines::Outline> outlines) const;
    void FillShape(std::span<const MOutlines::Outline> outlines, MColor color, MDrawMode mode);
    void PaintRun(const MPixelRows& operations, const MCoverageRun& run, MColor color);

    MBitmap* bitmap = nullptr;
    MColor* pixels = nullptr;  ///< the bitmap's, while a primitive paints
    MRect clip;                ///< in the bitmap's coordinates
};
