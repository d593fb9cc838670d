#pragma once

#include "ui/drawing/MDrawerToMBitmap.h"

class MFont;

/// A sheet of samples in panels, each with its name above it. Lengths are in units, of which each has so many
/// pixels as the percentage says.
class DrawingSheet {
public:
    /// `percent` is 100 for a unit of one pixel. The font's size is changed.
    DrawingSheet(MFont& font, int32_t percent);

    [[nodiscard]] MBitmap Draw();

private:
    [[nodiscard]] int32_t Scale(int32_t units) const { return units * percent / 100; }
    [[nodiscard]] MPoint Place(int32_t x, int32_t y) const { return {Scale(x), Scale(y)}; }
    [[nodiscard]] MPointF PlaceF(double x, double y) const { return {x * percent / 100, y * percent / 100}; }
    [[nodiscard]] MRect Area(int32_t x, int32_t y, int32_t width, int32_t height) const {
        return {Scale(x), Scale(y), Scale(x + width) - 1, Scale(y + height) - 1};
    }

    /// Begins a panel: paints its ground and its name, and makes its inside the origin.
    void BeginPanel(int32_t column, int32_t row, const char* name);
    void DrawGradients();
    void DrawShapes();
    void DrawLines();
    void DrawPictures();
    void DrawFrames();
    void DrawGraphs();
    void DrawText();
    void DrawModes();
    void Write(const MRect& rect, const MString& text, double size, MColor color, MTextAlignment alignment);
    /// A picture of a ball with a soft rim, and a frame with corners, an edge and a centre.
    [[nodiscard]] MBitmap MakeBall(int32_t size) const;
    [[nodiscard]] MBitmap MakeFrame() const;

    MFont& font;
    int32_t percent;
    MBitmap sheet;
    MDrawerToMBitmap target;
    MDrawer drawer;
};
