#pragma once

#include "ui/style/MStyleScale.h"

#include <cstdint>

class MResourceLibrary;
class MStyleColors;

/// What the images of a style need to become pixels. What it refers to outlives it.
struct MImageContext {
    const MResourceLibrary& resources;
    const MStyleColors& colors;
    MStyleScale scale;
    /// How far the face of a control lies inside of its edge, in pixels, to leave room for the mark of the
    /// focus.
    int32_t faceBorder = 0;
};
