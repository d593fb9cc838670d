#pragma once

#include "ui/drawing/MDrawer.h"
#include "ui/image/MAlphaMask.h"
#include "ui/text/MTextLayout.h"

#include <functional>
#include <vector>

/// Writes down the primitives that reach it, so that they can be painted without the controls that they come from:
/// fills, shapes, pictures and the masks of glyphs, each within its clip. Pictures are kept as they were.
class MRecordingDrawer final : public MDrawer {
public:
    explicit MRecordingDrawer(const MRect& area) : area(area), clip(area) {}

    [[nodiscard]] size_t CountPrimitives() const { return primitives.size(); }
    void Replay(MDrawer& drawer) const {
        for (const auto& primitive : primitives) primitive(drawer);
    }

    [[nodiscard]] int32_t GetWidth() override { return area.GetWidth(); }
    [[nodiscard]] int32_t GetHeight() override { return area.GetHeight(); }
    [[nodiscard]] MRect GetClip() override { return clip; }
    void SetClip(const MRect& rect) override { clip = rect; }

    void PatBlt(const MRect& rect, const MBitmap& bitmap, MPoint offset, uint8_t alpha,
                MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.PatBlt(rect, bitmap, offset, alpha, mode); });
    }
    void BitBlt(const MRect& source, const MBitmap& bitmap, MPoint point, uint8_t alpha,
                MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.BitBlt(source, bitmap, point, alpha, mode); });
    }
    void AlphaMask(const MRect& source, const MAlphaMask& mask, MPoint point, MColor color,
                   MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.AlphaMask(source, mask, point, color, mode); });
    }
    void StretchBlt(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                    MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.StretchBlt(rect, bitmap, source, alpha, mode); });
    }
    void StretchBltH(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                     MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.StretchBltH(rect, bitmap, source, alpha, mode); });
    }
    void StretchBltV(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                     MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.StretchBltV(rect, bitmap, source, alpha, mode); });
    }
    void PatBltPart(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                    MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.PatBltPart(rect, bitmap, source, alpha, mode); });
    }
    void AlignedTextOut(const MRect& rect, MFont& font, const MString& text, MColor color,
                        MTextAlignment alignment) override {
        MTextLayout layout(font, text, rect, alignment);
        for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);) PaintGlyph(glyph, color);
    }
    void PaintGlyph(const MPlacedGlyph& glyph, MColor color) override {
        Add([=](MDrawer& drawer) { drawer.PaintGlyph(glyph, color); });
    }
    void Line(MPoint from, MPoint to, MColor color) override {
        Add([=](MDrawer& drawer) { drawer.Line(from, to, color); });
    }
    void LineF(MPointF from, MPointF to, MColor color) override {
        Add([=](MDrawer& drawer) { drawer.LineF(from, to, color); });
    }
    void Rectangle(const MRect& rect, MColor color, MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.Rectangle(rect, color, mode); });
    }
    void FillRectangle(const MRect& rect, MColor color, MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.FillRectangle(rect, color, mode); });
    }
    void FillRectangleGradient(const MRect& rect, MColor from, MColor to, MGradientDirection direction,
                               MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.FillRectangleGradient(rect, from, to, direction, mode); });
    }
    void RoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.RoundRectangle(rect, radius, color, mode); });
    }
    void FillRoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.FillRoundRectangle(rect, radius, color, mode); });
    }
    void Circle(MPointF center, double radius, MColor color, MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.Circle(center, radius, color, mode); });
    }
    void FillCircle(MPointF center, double radius, MColor color, MDrawMode mode) override {
        Add([=](MDrawer& drawer) { drawer.FillCircle(center, radius, color, mode); });
    }
    void FillOutlines(std::span<const MOutlines::Outline> outlines, MColor color, MDrawMode mode) override {
        Add([=, kept = Keep(outlines)](MDrawer& drawer) { drawer.FillOutlines(kept, color, mode); });
    }
    void FillOutlinesGradient(std::span<const MOutlines::Outline> outlines, const MRect& rect, MColor from,
                              MColor to, MGradientDirection direction, MDrawMode mode) override {
        Add([=, kept = Keep(outlines)](MDrawer& drawer) {
            drawer.FillOutlinesGradient(kept, rect, from, to, direction, mode);
        });
    }

private:
    static std::vector<MOutlines::Outline> Keep(std::span<const MOutlines::Outline> outlines) {
        return {outlines.begin(), outlines.end()};
    }
    template <class Paint>
    void Add(Paint paint) {
        primitives.emplace_back([paint, within = clip](MDrawer& drawer) {
            drawer.SetClip(within);
            paint(drawer);
        });
    }

    const MRect area;
    MRect clip;
    std::vector<std::function<void(MDrawer&)>> primitives;
};
