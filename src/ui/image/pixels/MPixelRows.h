#pragma once

#include "ui/image/MColor.h"
#include "ui/image/MColorOp.h"

/// The inner loops of all drawing: what one operation does to a row of pixels. There is one set for each
/// `MColorOp`, made from its pixel operator (MPixelOperators.h). None leaves the target alone. Counts are in
/// pixels and may be 0; target and source do not overlap.
struct MPixelRows {
    /// Combines pixels; their alpha is first scaled by `alpha`.
    void (*blit)(MColor* target, const MColor* source, int32_t count, uint8_t alpha);
    /// Combines one colour with all pixels.
    void (*fill)(MColor* target, int32_t count, MColor color);
    /// Combines one colour with all pixels through a mask: the mask's byte is the alpha, scaled by that of
    /// the colour.
    void (*mask)(MColor* target, const uint8_t* mask, int32_t count, MColor color);
    /// As `blit` with the source's pixels at `position`, `position + step` and so on, in 16.16 fixed point
    /// from `source`; all lie within the source's row.
    void (*stretch)(MColor* target, const MColor* source, uint32_t position, uint32_t step, int32_t count,
                    uint8_t alpha);
};

/// How the loops are made. All forms give the same bytes.
enum class MPixelForm {
    Plain,  ///< for every processor
    SSE2,   ///< vectors of 128 bits, which every processor that the programs run on has
    AVX2,   ///< vectors of 256 bits
};

/// Whether this processor can run the form.
[[nodiscard]] bool MHasPixelForm(MPixelForm form);

/// The rows of an operation in the fastest form that this processor can run, or in one that it can run. An
/// operation that is none of the enumeration is taken for None, and one that has no form for vectors is given
/// in the plain one.
[[nodiscard]] const MPixelRows& MGetPixelRows(MColorOp operation);
[[nodiscard]] const MPixelRows& MGetPixelRows(MColorOp operation, MPixelForm form);
