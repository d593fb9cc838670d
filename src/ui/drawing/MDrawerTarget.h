#pragma once

#include "ui/drawing/MDrawer.h"

/// A drawer that paints by itself, at the end of a chain. Every such drawer has to have each of the
/// operations that reach a pixel; what a style provides it has not.
class MDrawerTarget : public MDrawer {
public:
    [[nodiscard]] int32_t GetWidth() override = 0;
    [[nodiscard]] int32_t GetHeight() override = 0;
    [[nodiscard]] MRect GetClip() override = 0;
    void SetClip(const MRect& rect) override = 0;

    void PatBlt(const MRect& rect, const MBitmap& bitmap, MPoint offset, uint8_t alpha,
                MDrawMode mode) override = 0;
    void BitBlt(const MRect& source, const MBitmap& bitmap, MPoint point, uint8_t alpha,
                MDrawMode mode) override = 0;
    void AlphaMask(const MRect& source, const MAlphaMask& mask, MPoint point, MColor color,
                   MDrawMode mode) override = 0;
    void StretchBlt(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                    MDrawMode mode) override = 0;
    void StretchBltH(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                     MDrawMode mode) override = 0;
    void StretchBltV(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                     MDrawMode mode) override = 0;
    void AlignedTextOut(const MRect& rect, MFont& font, const MString& text, MColor color,
                        MTextAlignment alignment) override = 0;

    void SetPixel(MPoint point, MColor color) override = 0;
    void Line(MPoint from, MPoint to, MColor color) override = 0;
    void SetPixelF(MPointF point, MColor color) override = 0;
    void LineF(MPointF from, MPointF to, MColor color) override = 0;
    void ResetPixelEffect() override = 0;

    void Rectangle(const MRect& rect, MColor color, MDrawMode mode) override = 0;
    void FillRectangle(const MRect& rect, MColor color, MDrawMode mode) override = 0;
    void FillRectangleGradient(const MRect& rect, MColor from, MColor to, MGradientDirection direction,
                               MDrawMode mode) override = 0;
    void RoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) override = 0;
    void FillRoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) override = 0;
    void Circle(MPointF center, double radius, MColor color, MDrawMode mode) override = 0;
    void FillCircle(MPointF center, double radius, MColor color, MDrawMode mode) override = 0;
    void FillTriangle(MPointF p1, MPointF p2, MPointF p3, MColor color, MDrawMode mode) override = 0;

    void FillVerticalColumn(int32_t x, double top, double bottom, MColor color) override = 0;
    void FillHorizontalRow(int32_t y, double left, double right, MColor color) override = 0;
    void PaintPolyLine(const PointList& points, MColor color) override = 0;
    void PaintPolygon(const PointList& points, MColor color) override = 0;
    void PaintHorizontalPolyLine(int32_t firstX, const ValueList& values, MColor color) override = 0;
    void PaintHorizontalGraph(int32_t firstX, const ValueList& values, double baseY,
                              MColor color) override = 0;
    void PaintHorizontalGraph(int32_t firstX, const ValueList& upper, const ValueList& lower,
                              MColor color) override = 0;
    void Flush() override = 0;

    void PaintGlyph(const MPlacedGlyph& glyph, MColor color) override = 0;
    void PatBltPart(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                    MDrawMode mode) override = 0;
    void FillOutlines(std::span<const MOutlines::Outline> outlines, MColor color,
                      MDrawMode mode) override = 0;
    void FillOutlinesGradient(std::span<const MOutlines::Outline> outlines, const MRect& rect, MColor from,
                              MColor to, MGradientDirection direction, MDrawMode mode) override = 0;

protected:
    MDrawerTarget() = default;
};
