#pragma once

#include "ui/drawing/MPixelRows.h"

#include <array>

/// The rows of one form, by operation; null where the form has none.
using MPixelRowSet = std::array<MPixelRows, MColorOpCount>;

extern const MPixelRowSet MPixelRowsPlain;
extern const MPixelRowSet MPixelRowsSSE2;
/// Only to be called on a processor that has AVX2.
extern const MPixelRowSet MPixelRowsAVX2;
