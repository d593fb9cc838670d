#pragma once

#include "ui/geometry/MLength.h"
#include "ui/geometry/MPoint.h"

#include <algorithm>
#include <cstdint>
#include <optional>

/// What one layout after the other of a control adds up while its size is measured, in pixels.
///
/// A strip that is cut off one side takes some of the width, say, and all of the height that is left: what
/// follows has less width, and the whole has to be as high as the strip and all that was taken before it. A
/// gap counts as soon as something lies behind it.
struct MLayoutNeeds {
    MPoint taken;   ///< of the free rectangle, with the gaps behind
    MPoint needed;  ///< by all until now
    /// Of the whole, where that is given already and only the height is asked for.
    std::optional<int32_t> width;

    /// What is free of the width, or what something needs that may have any.
    [[nodiscard]] int32_t GetRoom(int32_t neededWidth) const {
        return width ? MClampLength(int64_t{*width} - taken.x) : neededWidth;
    }

    /// Something that lies in what is free along an axis and takes nothing of it.
    void Fill(MAxis axis, int32_t length) {
        needed[axis] = std::max(needed[axis], MClampLength(int64_t{taken[axis]} + length));
    }
    void Fill(MPoint size) {
        Fill(MAxis::X, size.x);
        Fill(MAxis::Y, size.y);
    }
    /// Something at an edge, and the gap to what follows.
    void Take(MAxis axis, int32_t length, int32_t gap) {
        Fill(axis, length);
        taken[axis] = MClampLength(int64_t{taken[axis]} + length + gap);
    }
};
