#pragma once

#include "ui/image/pixels/MPixelOperators.h"
#include "ui/image/pixels/MPixelRows.h"

#include <array>

/// The rows of one form, by operation; null for None.
using MPixelRowSet = std::array<MPixelRows, MColorOpCount>;

extern const MPixelRowSet MPixelRowsPlain;
extern const MPixelRowSet MPixelRowsSSE2;
/// Only to be called on a processor that has AVX2.
extern const MPixelRowSet MPixelRowsAVX2;

/// The rows of all operations but None, which paints nothing.
template <template <class Operator> class RowsOf>
constexpr MPixelRowSet MMakePixelRowSet() {
    using namespace MPixelOperators;
    return {MPixelRows(),
            RowsOf<Alphablend>::Set,
            RowsOf<Modulate>::Set,
            RowsOf<Copy>::Set,
            RowsOf<Overlay>::Set,
            RowsOf<Color>::Set,
            RowsOf<Invert>::Set,
            RowsOf<Add>::Set,
            RowsOf<Subtract>::Set,
            RowsOf<Lighten>::Set,
            RowsOf<Darken>::Set,
            RowsOf<Difference>::Set,
            RowsOf<IncContrast>::Set,
            RowsOf<DecContrast>::Set,
            RowsOf<LightenByContrast>::Set,
            RowsOf<DarkenByContrast>::Set,
            RowsOf<AddAndOverflow>::Set};
}
