#include "ui/layout/MLayoutFlow.h"

#include "ui/control/MControl.h"
#include "ui/geometry/MLength.h"
#include "ui/layout/MWeightShares.h"

#include <algorithm>

bool MLayoutFlow::IsEmpty() const {
    return std::none_of(controls.begin(), controls.end(),
                        [](const MControl* control) { return control->Is(MControlFlag::Visible); });
}

int32_t MLayoutFlow::GetThickness(const SizeComputer& computer) const {
    int32_t thickness = 0;
    for (MControl* control : controls)
        if (control->Is(MControlFlag::Visible))
            thickness = std::max(thickness, computer.Get(*control, Across(axis)));
    return thickness;
}

MLayoutFlow::Lengths MLayoutFlow::Distribute(const SizeComputer& computer, int32_t thickness) const {
    Lengths lengths;
    int64_t weights = 0;
    for (MControl* control : controls) {
        if (!control->Is(MControlFlag::Visible)) continue;
        lengths.fixed += GetGapBehind(*control);
        if (control->Is(MControlFlag::Plastic)) {
            const int64_t inside = thickness - int64_t{2} * SizeComputer::GetBorder(*control, Across(axis));
            control->minimalSize[axis] =
                control->GetPlasticSize(static_cast<int32_t>(axis), MClampLength(inside));
        }
        if (IsFixed(*control))
            lengths.fixed += computer.Get(*control, axis);
        else
            weights += control->layoutRatio[axis];
    }
    lengths.weights = weights;
    for (MControl* control : controls)
        if (control->Is(MControlFlag::Visible) && !IsFixed(*control))
            lengths.shared =
                std::max(lengths.shared, MWeightShares::GetLengthFor(computer.Get(*control, axis),
                                                                     control->layoutRatio[axis], weights));
    return lengths;
}

int32_t MLayoutFlow::MeasureFlow(const SizeComputer& computer, int32_t thickness) const {
    const Lengths lengths = Distribute(computer, thickness);
    return MClampLength(lengths.fixed + lengths.shared - gap);
}

void MLayoutFlow::Flow(MControl& owner, const MRect& rect) const {
    const CurrentSizeComputer computer;
    const Lengths lengths = Distribute(computer, rect.GetLength(Across(axis)));
    MWeightShares shares(int64_t{rect.GetLength(axis)} + gap - lengths.fixed, lengths.weights);
    int64_t place = rect.GetLow(axis);
    for (MControl* control : controls) {
        if (!control->Is(MControlFlag::Visible)) continue;
        const int32_t length =
            IsFixed(*control) ? computer.Get(*control, axis) : shares.Take(control->layoutRatio[axis]);
        MRect cell = rect;
        cell.SetLow(axis, MClampPlace(place));
        cell.SetHigh(axis, MClampPlace(place) + length - 1);
        owner.PlaceControl(*control, cell);
        place += int64_t{length} + GetGapBehind(*control);
    }
}

bool MLayoutFlow::IsFixed(const MControl& control) const {
    return control.layoutRatio[axis] <= 0 || (axis == MAxis::Y && control.Is(MControlFlag::Collapsed));
}

int32_t MLayoutFlow::GetGapBehind(const MControl& control) const {
    return MClampLength(int64_t{gap} + SizeComputer::GetSpaceAfter(control, axis));
}
