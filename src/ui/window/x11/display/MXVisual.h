#pragma once

#include <cstdint>
#include <xcb/xcb.h>

class MXConnection;

/// How the pixels of a window look: which visual its windows are made of, and how a colour is written in it.
struct MXVisual {
    /// Chooses for a display: the root's own visual if its pixels are like those of an `MBitmap`, else one
    /// with an alpha channel, whose are too, else the root's with a conversion. Raises "The display shows no
    /// true colours." (0).
    explicit MXVisual(const MXConnection& connection);

    xcb_visualid_t visual = 0;
    uint8_t depth = 0;
    xcb_colormap_t colormap = 0;
    uint8_t bytesPerPixel = 4;
    bool isBigEndian = false;
    uint32_t redMask = 0xFF0000;
    uint32_t greenMask = 0xFF00;
    uint32_t blueMask = 0xFF;

    /// Whether the pixels of a bitmap are shown as they stand in memory.
    [[nodiscard]] bool IsDirect() const {
        return bytesPerPixel == 4 && !isBigEndian && redMask == 0xFF0000 && greenMask == 0xFF00 &&
               blueMask == 0xFF;
    }
};
