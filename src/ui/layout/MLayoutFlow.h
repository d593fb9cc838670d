#pragma once

#include "foundation/base/MList.h"
#include "ui/geometry/MAxis.h"
#include "ui/geometry/MRect.h"

#include <cstdint>

class MControl;
class SizeComputer;

/// The visible controls of a list, one behind the other along an axis. Those that do not stretch along it,
/// and what is left of the height of collapsed ones, keep their length; the others share the rest by their
/// ratios. A `Plastic` control that keeps its length has the one that follows from the thickness.
class MLayoutFlow final {
public:
    /// The list outlives the flow. `gap` is in front of each control but the first.
    MLayoutFlow(const MList<MControl, MListPointers>& controls, MAxis axis, int32_t gap)
        : controls(controls), axis(axis), gap(gap) {}

    [[nodiscard]] bool IsEmpty() const;
    /// What the thickest control takes across.
    [[nodiscard]] int32_t GetThickness(const SizeComputer& computer) const;

    /// What the controls need along the axis.
    struct Lengths {
        int64_t fixed = 0;    ///< of those that keep theirs, and all gaps, one behind the last control too
        int64_t weights = 0;  ///< the sum of the others' ratios
        int64_t shared = 0;   ///< the least that makes each share as long as its control has to be
    };
    /// Stores the length of plastic controls as part of their minimal size.
    [[nodiscard]] Lengths Distribute(const SizeComputer& computer, int32_t thickness) const;
    [[nodiscard]] int32_t MeasureFlow(const SizeComputer& computer, int32_t thickness) const;
    /// Places the controls in a rectangle; one behind the other from its low edge on if it is too short.
    void Flow(MControl& owner, const MRect& rect) const;

private:
    [[nodiscard]] bool IsFixed(const MControl& control) const;
    /// From the end of a control to the beginning of the next one.
    [[nodiscard]] int32_t GetGapBehind(const MControl& control) const;

    const MList<MControl, MListPointers>& controls;
    const MAxis axis;
    const int32_t gap;
};
