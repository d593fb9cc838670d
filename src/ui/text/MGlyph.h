#pragma once

#include "ui/image/MAlphaMask.h"

#include <cstdint>
#include <memory>

/// The picture of a character at the size of its font. Measures are in pixels.
struct MGlyph {
    bool isLoaded = false;
    int32_t advance = 0;  ///< from this glyph's origin to the next one's
    int32_t left = 0;     ///< from the origin to the left edge of the mask
    int32_t top = 0;      ///< from the top edge of the mask down to the baseline
    int32_t width = 0;
    int32_t height = 0;
    int32_t leftDelta = 0;             ///< by how much hinting has moved the left edge, in 64ths of a pixel
    int32_t rightDelta = 0;            ///< and the right edge
    std::unique_ptr<MAlphaMask> mask;  ///< null if there is nothing to paint, as for a space
};
