#pragma once

#include "ui/stml/MSTMLColor.h"

#include <cstdint>

class MDrawer;
class MSTMLAttributes;
struct MRect;

/// What stands behind the content of a container, a cell, a row or a paragraph.
struct MSTMLFill {
    /// Takes "invert", "fillalpha" and "fill".
    void Read(const MSTMLAttributes& attributes);

    /// Paints the ground, and a border of so many pixels if the colours are not inverted. Gives whether the
    /// content is in inverted colours.
    bool PaintFill(MDrawer& drawer, const MRect& rect, bool isInverted, int32_t border = 0,
                   uint8_t borderAlpha = 255) const;

    bool invert = false;    ///< the ground has the colour of the text, and the text that of the ground
    uint8_t fillAlpha = 0;  ///< of the text's colour, which is painted before and in place of `fillColor`
    MSTMLColor fillColor;
};
