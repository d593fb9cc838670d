#pragma once

#include "ui/geometry/MRect.h"

#include <vector>

class MAlphaMask;

/// The pixels of a mask that are above 0, as rectangles that do not overlap: from the top and, in each band
/// of rows that are alike, from the left.
[[nodiscard]] std::vector<MRect> MFindMaskRectangles(const MAlphaMask& mask);
