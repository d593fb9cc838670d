#pragma once

#include <cstdint>

/// What a piece of text looks like. An index of -1 stands for the default of the document.
struct MSTMLLook {
    int32_t font = -1;   ///< of `MStdFont`
    int32_t color = -1;  ///< of `MStdColor`
    uint8_t alpha = 255;
    bool isInverted = false;

    friend bool operator==(const MSTMLLook&, const MSTMLLook&) = default;
};
