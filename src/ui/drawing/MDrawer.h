#pragma once

#include "foundation/base/MList.h"
#include "foundation/base/MObject.h"
#include "ui/drawing/MGradient.h"
#include "ui/drawing/MOutlines.h"
#include "ui/geometry/MTextAlignment.h"
#include "ui/image/MBitmap.h"
#include "ui/image/MColorOp.h"

#include <cstdint>
#include <span>
#include <vector>

class MAlphaMask;
class MFont;
class MFontTable;
struct MPlacedGlyph;

/// The only way by which anything reaches a pixel. A drawer works in coordinates of its own; this class
/// shifts them and hands every operation on to a target, whose last one paints.
///
/// Coordinates are pixels, rectangles include their right and bottom edge, and nothing outside of the clip is
/// painted. An operation with a mode combines by it, others as is right for the target. A source rectangle is
/// cut to its bitmap. No operation raises but `PaintBitmapPart` and `PaintCornered`: what fails is reported
/// to the diagnostics, and painting goes on. A drawer belongs to the one paint in progress.
///
/// What is shown on a screen, the buffer of a window or the bitmap of a control, is opaque: all of its pixels
/// have an alpha of 255. It begins as that (`MBitmap::CreateOpaque`) and stays so in every mode but `Copy`,
/// which there is for opaque colours and pictures only.
class MDrawer : public MObject {
public:
    using PointList = MList<MPointF>;
    using ValueList = MList<double>;

    /// The target outlives the drawer. Without one nothing is painted; what paints by itself is an
    /// `MDrawerTarget`.
    explicit MDrawer(MDrawer* target = nullptr) : target(target) {}

    /// What was set, else that of the target.
    [[nodiscard]] virtual int32_t GetWidth();
    [[nodiscard]] virtual int32_t GetHeight();

    // What a style provides; without one null, 0 or the text's own colour.
    [[nodiscard]] virtual MBitmap* GetStdIcon(int32_t index);
    /// The same icon as coverage, for any colour; null for one that has colours of its own.
    [[nodiscard]] virtual const MAlphaMask* GetStdIconMask(int32_t index);
    [[nodiscard]] virtual MBitmap* GetStdBitmap(int32_t index);
    [[nodiscard]] virtual MFontTable* GetFontTable();
    /// A font of the table, for a control in a state (the bits of its `GetDrawState`). `color` becomes the
    /// one to use it with: what `GetTextColor` gives, its alpha scaled by that of the state.
    [[nodiscard]] virtual MFont* GetFont(int32_t fontIndex, int32_t colorIndex, bool isInverted,
                                         uint8_t drawState, MColor& color);
    static constexpr int32_t BackgroundIndex = -1;
    [[nodiscard]] virtual MColor GetTextColor(int32_t index, bool isInverted);
    [[nodiscard]] virtual int32_t GetStdSize(int32_t index);
    /// A length in pixels by the style's size factor.
    [[nodiscard]] virtual int32_t ScaleX(int32_t value);
    [[nodiscard]] virtual int32_t ScaleY(int32_t value);
    virtual void SetBackgroundColor(MColor color);
    [[nodiscard]] virtual MColor GetBackgroundColor();

    /// What may be painted, in this drawer's coordinates.
    [[nodiscard]] virtual MRect GetClip();
    virtual void SetClip(const MRect& rect);

    // Pictures. `alpha` scales that of the picture's pixels.
    /// Tiles a bitmap over `rect`, whose top left pixel shows the bitmap's pixel `offset`.
    virtual void PatBlt(const MRect& rect, const MBitmap& bitmap, MPoint offset, uint8_t alpha,
                        MDrawMode mode);
    virtual void BitBlt(const MRect& source, const MBitmap& bitmap, MPoint point, uint8_t alpha,
                        MDrawMode mode);
    /// Paints a colour through a mask.
    virtual void AlphaMask(const MRect& source, const MAlphaMask& mask, MPoint point, MColor color,
                           MDrawMode mode);
    /// Scales in both directions; each pixel shows the nearest one of the source.
    virtual void StretchBlt(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                            MDrawMode mode);
    virtual void BitBltWhole(const MBitmap& bitmap, MPoint point, uint8_t alpha, MDrawMode mode);
    virtual void StretchBltWhole(const MRect& rect, const MBitmap& bitmap, uint8_t alpha, MDrawMode mode);
    /// Scales horizontally and tiles vertically; `StretchBltV` the other way round.
    virtual void StretchBltH(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                             MDrawMode mode);
    virtual void StretchBltV(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                             MDrawMode mode);

    /// Text in a rectangle, which does not clip it. Without shadow; see `DrawText`.
    virtual void AlignedTextOut(const MRect& rect, MFont& font, const MString& text, MColor color,
                                MTextAlignment alignment);

    // Points and lines. The forms with doubles have smooth edges; their lines are a pixel wide.
    /// Puts the colour in the place of the pixel's, without blending; see `MDrawerToMBitmap` for its alpha.
    virtual void SetPixel(MPoint point, MColor color);
    /// Both ends are painted.
    virtual void Line(MPoint from, MPoint to, MColor color);
    /// A square of a pixel's size around the point.
    virtual void SetPixelF(MPointF point, MColor color);
    virtual void LineF(MPointF from, MPointF to, MColor color);
    /// `SetPixel` and `Line` paint as they do in the beginning; see `MDrawerToMBitmap`.
    virtual void ResetPixelEffect();

    // Shapes. A radius is in pixels; an outline is a pixel wide and lies inside of what filling would paint.
    virtual void Rectangle(const MRect& rect, MColor color, MDrawMode mode);
    virtual void FillRectangle(const MRect& rect, MColor color, MDrawMode mode);
    virtual void FillRectangleGradient(const MRect& rect, MColor from, MColor to,
                                       MGradientDirection direction, MDrawMode mode);
    virtual void RoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode);
    virtual void FillRoundRectangle(const MRect& rect, double radius, MColor color, MDrawMode mode);
    virtual void Circle(MPointF center, double radius, MColor color, MDrawMode mode);
    virtual void FillCircle(MPointF center, double radius, MColor color, MDrawMode mode);
    virtual void FillTriangle(MPointF p1, MPointF p2, MPointF p3, MColor color, MDrawMode mode);

    // Graphs. Values are places on the other axis, and stand a pixel apart.
    /// From `top` to `bottom` in the column `x`, or from `left` to `right` in the row `y`, with smooth ends.
    virtual void FillVerticalColumn(int32_t x, double top, double bottom, MColor color);
    virtual void FillHorizontalRow(int32_t y, double left, double right, MColor color);
    virtual void PaintPolyLine(const PointList& points, MColor color);
    /// Closed, and filled by the non-zero rule.
    virtual void PaintPolygon(const PointList& points, MColor color);
    virtual void PaintHorizontalPolyLine(int32_t firstX, const ValueList& values, MColor color);
    /// What lies between the values and the line at `baseY`, or between two curves as long as the shorter
    /// one.
    virtual void PaintHorizontalGraph(int32_t firstX, const ValueList& values, double baseY, MColor color);
    virtual void PaintHorizontalGraph(int32_t firstX, const ValueList& upper, const ValueList& lower,
                                      MColor color);
    /// Puts everything on the screen that waits to be.
    virtual void Flush();

    /// A glyph of a text layout, in the mode that is right for text on the target.
    virtual void PaintGlyph(const MPlacedGlyph& glyph, MColor color);
    /// Tiles a part of a bitmap over `rect`, beginning at its top left pixel.
    virtual void PatBltPart(const MRect& rect, const MBitmap& bitmap, const MRect& source, uint8_t alpha,
                            MDrawMode mode);
    /// Shapes of any kind, with smooth edges: what lies inside of outlines (see MOutlines.h), as wide frames
    /// and rings.
    virtual void FillOutlines(std::span<const MOutlines::Outline> outlines, MColor color, MDrawMode mode);
    /// The same by the colours that `FillRectangleGradient` would give `rect`.
    virtual void FillOutlinesGradient(std::span<const MOutlines::Outline> outlines, const MRect& rect,
                                      MColor from, MColor to, MGradientDirection direction, MDrawMode mode);

    /// Text as styles draw it: where shadows are on, the inverted colour a pixel to the right and below
    /// first.
    void DrawText(const MRect& rect, MFont& font, const MString& text, MColor color,
                  MTextAlignment alignment);

    /// An icon in a colour, or in its own ones with the alpha of that. None paints nothing.
    void DrawIcon(int32_t index, MPoint point, MColor color);

    /// How `PaintBitmapPart` fills: one of `MBitmapFill`, and `PartKept` for a part that is left as it is.
    static constexpr int32_t PartKept = 4;
    /// Fills a rectangle by a part of a bitmap. Raises "Invalid bitmap layout flags specified for
    /// processing." (0) for any other flag.
    void PaintBitmapPart(const MRect& rect, const MBitmap& bitmap, const MRect& source, int32_t flags,
                         uint8_t alpha, MDrawMode mode);
    /// Paints a frame of nine parts: corners of `cornerSize` as they are, edges and centre by their flags,
    /// as in `PaintBitmapPart`. Corners that do not fit are cut at their inner sides.
    ///
    /// An edge differs from its source in one direction only, so `edgeFlags` tells both how the upper and
    /// lower edges are filled from left to right and how the left and right ones are from top to bottom:
    ///
    ///                                 left and right scaled    left and right tiled
    ///     upper and lower scaled      Stretch                  HPattern
    ///     upper and lower tiled       VPattern                 Pattern
    void PaintCornered(const MRect& rect, const MBitmap& bitmap, const MRect& source, MPoint cornerSize,
                       int32_t edgeFlags, int32_t centerFlags, uint8_t alpha, MDrawMode mode);

    /// Writes the colour itself, alpha included and whatever the pixel effect, so that painting a point twice
    /// is as painting it once.
    void SetPixelOnce(MPoint point, MColor color) {
        FillRectangle({point.x, point.y, point.x, point.y}, color, MDrawMode::Copy);
    }
    /// Where this drawer's origin lies in the target.
    void SetTranslation(int32_t x, int32_t y) { translation = {x, y}; }
    /// The size to answer in place of the target's; where it is 0, the target is asked.
    void SetSize(int32_t newWidth, int32_t newHeight) {
        width = newWidth;
        height = newHeight;
    }
    void SetTarget(MDrawer* newTarget) { target = newTarget; }

    /// How strong the shadow of text is; 0 for none.
    uint8_t textShadowAlpha = 0;
    /// Whether text is in the colours of what is selected.
    bool inverted = false;

protected:
    [[nodiscard]] MPoint Shift(MPoint point) const { return point + translation; }
    [[nodiscard]] MPointF Shift(MPointF point) const {
        return {point.x + translation.x, point.y + translation.y};
    }
    [[nodiscard]] MRect Shift(const MRect& rect) const { return rect.Shifted(translation); }
    [[nodiscard]] PointList Shift(const PointList& points) const;
    [[nodiscard]] ValueList ShiftY(const ValueList& values) const;
    [[nodiscard]] std::vector<MOutlines::Outline> Shift(std::span<const MOutlines::Outline> outlines) const;

    MDrawer* target;
    MPoint translation;
    int32_t width = 0;
    int32_t height = 0;
    MColor backgroundColor;
};
