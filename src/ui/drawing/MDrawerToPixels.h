#pragma once

#include "foundation/base/MException.h"
#include "ui/drawing/MAxisMap.h"
#include "ui/drawing/MCoverage.h"
#include "ui/drawing/MDrawerTarget.h"

/// A target in whose hands every primitive becomes the same few things, whatever they are painted with:
/// rectangles of one colour, the coverage of shapes, pictures and masks. So all of these targets paint the
/// same pixels.
///
/// Operations without a mode blend. What a mask or a shape does not cover stays as it is.
class MDrawerToPixels : public MDrawerTarget {
public:
    [[nodiscard]] int32_t GetWidth() override;
    [[nodiscard]] int32_t GetHeight() override;
    [[nodiscard]] MRect GetClip() override { return clip.Shifted(MPoint() - translation); }
    void SetClip(const MRect& rect) override { clip = Shift(rect); }

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

    void Line(MPoint from, MPoint to, MColor color) override;
    void SetPixelF(MPointF point, MColor color) override;
    void LineF(MPointF from, MPointF to, MColor color) override;
    void ResetPixelEffect() override {}

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

protected:
    /// `className` stands in front of the names of operations in reports.
    explicit MDrawerToPixels(const char* className) : className(className) {}

    // What a target paints with. Places are those of its own pixels, and only `GetPaintable` of an area may
    // change.
    /// Called at the beginning of each operation; false if there is nothing to paint on.
    [[nodiscard]] virtual bool Prepare() = 0;
    /// All pixels that there are.
    [[nodiscard]] virtual MRect GetBounds() const = 0;
    /// How operations without a mode combine; lines of whole pixels may do so in a way of their own.
    [[nodiscard]] virtual MDrawMode GetBlendMode() const = 0;
    [[nodiscard]] virtual MDrawMode GetLineMode() const { return GetBlendMode(); }
    virtual void FillPart(const MRect& rect, MColor color, MDrawMode mode) = 0;
    virtual void FillGradient(const MRect& rect, const MGradient& gradient, MDrawMode mode) = 0;
    virtual void FillCoverage(const MCoverage& coverage, MColor color, MDrawMode mode) = 0;
    /// The gradient begins at the top left pixel of `area`.
    virtual void FillCoverageGradient(const MCoverage& coverage, const MGradient& gradient, const MRect& area,
                                      MDrawMode mode) = 0;
    /// A direct picture that is not empty.
    virtual void PaintPicture(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows,
                              uint8_t alpha, MDrawMode mode) = 0;
    virtual void PaintMask(const MRect& part, const MAlphaMask& mask, MPoint point, MColor color,
                           MDrawMode mode) = 0;

    /// Runs an operation behind its boundary, if there is something to paint on.
    template <class Body>
    void Paint(const char* operation, Body body) {
        try {
            if (Prepare()) body();
        } catch (const MException&) {
        } catch (...) {
            Report(operation);
        }
    }
    [[nodiscard]] MRect GetPaintable(const MRect& rect) const {
        return rect.Intersected(clip).Intersected(GetBounds());
    }
    /// An alpha of which a part is covered, as painting through a mask has it.
    [[nodiscard]] static uint8_t Scale(uint8_t share, uint8_t alpha) {
        return static_cast<uint8_t>(((share + 1) * alpha) >> 8);
    }

    MRect clip;  ///< in the target's pixels

private:
    void Report(const char* operation) const;
    using MapAxis = MAxisMap (*)(int32_t target, int32_t targetLength, int32_t source, int32_t length);
    void PaintPart(const char* operation, const MRect& rect, const MBitmap& source, const MRect& part,
                   MapAxis mapColumns, MapAxis mapRows, uint8_t alpha, MDrawMode mode);
    void PaintDirect(const MBitmap& source, const MAxisMap& columns, const MAxisMap& rows, uint8_t alpha,
                     MDrawMode mode);
    [[nodiscard]] MCoverage GetCoverage(std::span<const MOutlines::Outline> outlines) const;
    void FillShape(std::span<const MOutlines::Outline> outlines, MColor color, MDrawMode mode);

    const char* const className;
};
