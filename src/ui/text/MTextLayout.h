#pragma once

#include "foundation/text/MString.h"
#include "ui/geometry/MPoint.h"
#include "ui/geometry/MRect.h"
#include "ui/geometry/MTextAlignment.h"
#include "ui/text/MTextPen.h"

#include <cstdint>

class MAlphaMask;

/// A glyph and where its top left pixel stands.
struct MPlacedGlyph {
    const MAlphaMask* mask = nullptr;  ///< the font's
    MPoint point;
};

/// The way of text to glyphs at pixels: a drawer takes one after the other and paints its mask.
///
///     MTextLayout layout(font, text, rect, MTextCenter | MTextMiddle);
///     for (MPlacedGlyph glyph; layout.TakeGlyph(glyph);) AlphaMask(...)
///
/// A line feed begins a new line; each line is aligned by itself, and all together vertically. What is larger
/// than the rectangle begins at its left or top edge and goes beyond the other one. Font and text outlive the
/// layout.
class MTextLayout {
public:
    MTextLayout(MFont& font, const MString& text, const MRect& rect, MTextAlignment alignment);

    /// The next glyph that has something to paint; false at the end of the text.
    [[nodiscard]] bool TakeGlyph(MPlacedGlyph& glyph);

    /// Size of the smallest rectangle that holds the text's lines: the widest one, and from the ascent of the
    /// first to the descent of the last.
    [[nodiscard]] static int32_t GetWidth(MFont& font, const MString& text);
    [[nodiscard]] static int32_t GetHeight(const MFont& font, const MString& text);

private:
    void BeginLine();

    MFont& font;
    const MString& text;
    const MRect rect;
    const MTextAlignment alignment;
    int32_t index = 0;  ///< of the next unit
    MPoint start;       ///< of the line, on the baseline
    MTextPen pen;
};
