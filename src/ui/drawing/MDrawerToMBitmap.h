#pragma once

#include "ui/drawing/MDrawerToPixels.h"
#include "ui/image/pixels/MPixelRows.h"

/// Paints into a bitmap, by the processor alone. All bytes are the same on every platform.
///
/// Without a bitmap, or with an empty or a paletted one, nothing is painted. Operations without a mode blend,
/// and where the bitmap's alpha counts fill what is transparent: "Overlay", else "Alphablend". What a mask or
/// a shape does not cover stays as it is; only `AlphaMask` in the mode "Copy" writes all pixels.
class MDrawerToMBitmap : public MDrawerToPixels {
public:
    MDrawerToMBitmap() : MDrawerToPixels("MDrawerToMBitmap") {}
    explicit MDrawerToMBitmap(MBitmap& bitmap) : MDrawerToMBitmap() { SetBitmap(&bitmap); }

    /// The bitmap outlives the drawer; null for none. The clip becomes the whole bitmap, and the alpha of one
    /// that is opaque does not count.
    void SetBitmap(MBitmap* newBitmap);

    void SetPixel(MPoint point, MColor color) override;
    void ResetPixelEffect() override { pixelEffect = 0; }

    /// Whether the bitmap's alpha counts, as that of a picture does. It does not on what is shown (see
    /// `MDrawer`).
    bool hasAlphaChannel = true;
    /// Below 1 `SetPixel` writes its colour as it is, with its alpha if that counts, else with 255, and
    /// `Line` blends; from 1 on both add, so that lines that cross glow.
    int32_t pixelEffect = 0;

protected:
    [[nodiscard]] bool Prepare() override;
    [[nodiscard]] MRect GetBounds() const override { return bitmap ? bitmap->GetRect() : MRect(); }
    [[nodiscard]] MDrawMode GetBlendMode() const override {
        return hasAlphaChannel ? MDrawMode::Overlay : MDrawMode::Alphablend;
    }
    [[nodiscard]] MDrawMode GetLineMode() const override {
        return pixelEffect < 1 ? GetBlendMode() : MDrawMode::Add;
    }
    void FillPart(const MRect& rect, MColor color, MDrawMode mode) override;
    void FillGradient(const MRect& rect, const MGradient& gradient, MDrawMode mode) override;
    void FillCoverage(const MCoverage& coverage, MColor color, MDrawMode mode) override;
    void FillCoverageGradient(const MCoverage& coverage, const MGradient& gradient, const MRect& area,
                              MDrawMode mode) override;
    void PaintPicture(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows, uint8_t alpha,
                      MDrawMode mode) override;
    void PaintMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                   MDrawMode mode) override;

private:
    [[nodiscard]] MColor* GetPlace(int32_t x, int32_t y) const {
        return pixels + int64_t{bitmap->GetWidth()} * y + x;
    }
    void PaintRun(const MPixelRows& operations, const MCoverageRun& run, MColor color) const;

    MBitmap* bitmap = nullptr;
    MColor* pixels = nullptr;  ///< the bitmap's, while a primitive paints
};
