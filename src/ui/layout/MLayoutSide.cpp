#include "ui/layout/MLayoutSide.h"

#include "foundation/base/MException.h"
#include "ui/control/MControl.h"
#include "ui/geometry/MLength.h"
#include "ui/layout/MLayoutFlow.h"

#include <algorithm>

MRect MLayoutSide::Arrange(MControl& arranged, const MRect& rect) {
    const MAxis along = GetFlowAxis();
    const MAxis across = Across(along);
    const MLayoutFlow flow(controls, along, GetSpace());
    if (flow.IsEmpty()) return rect;

    FitPlastic(rect.GetLength(along));
    const int64_t thickness = flow.GetThickness(CurrentSizeComputer());
    const int64_t low = rect.GetLow(across);
    const int64_t high = rect.GetHigh(across);
    const int64_t lost = thickness + GetSpace();
    MRect strip = rect;
    MRect rest = rect;
    if (direction == MSideDirection::Left || direction == MSideDirection::Top) {
        rest.SetLow(across, static_cast<int32_t>(std::max(low, std::min(low + lost, high + 1))));
    } else {
        rest.SetHigh(across, static_cast<int32_t>(std::min(high, std::max(high - lost, low - 1))));
        strip.SetLow(across, static_cast<int32_t>(std::max(low, high - thickness + 1)));
    }
    strip.SetHigh(across, static_cast<int32_t>(strip.GetLow(across) + thickness - 1));
    flow.Flow(arranged, strip);
    return rest;
}

void MLayoutSide::FitPlastic(int32_t length) {
    if (controls.GetCount() != 1 || !controls[0]->Is(MControlFlag::Plastic)) return;
    const MAxis along = GetFlowAxis();
    const MAxis across = Across(along);
    MControl& control = *controls[0];
    const int64_t inside = int64_t{length} - SizeComputer::GetSpaceAfter(control, along) -
                           int64_t{2} * SizeComputer::GetBorder(control, along);
    control.minimalSize[across] = control.GetPlasticSize(static_cast<int32_t>(across), MClampLength(inside));
}

void MLayoutSide::Measure(MControl&, MLayoutNeeds& needs, const SizeComputer& computer) {
    const MAxis along = GetFlowAxis();
    const MLayoutFlow flow(controls, along, GetSpace());
    if (flow.IsEmpty()) return;
    if (along == MAxis::X && needs.width) FitPlastic(needs.GetRoom(0));
    const int32_t thickness = flow.GetThickness(StripSizeComputer(computer));
    needs.Fill(along, flow.MeasureFlow(computer, thickness));
    needs.Take(Across(along), thickness, GetSpace());
}

MFlexibility MLayoutSide::GetFlexibility() {
    const MAxis along = GetFlowAxis();
    const MFlexibility stretch = along == MAxis::X ? MFlexibleX : MFlexibleY;
    for (MControl* control : controls)
        if (control->Is(MControlFlag::Visible) && control->layoutRatio[along] > 0 &&
            control->GetFlexibility() & stretch)
            return stretch;
    return MFlexibleNone;
}

MAxis MLayoutSide::GetFlowAxis() const {
    switch (direction) {
    case MSideDirection::Left:
    case MSideDirection::Right: return MAxis::Y;
    case MSideDirection::Top:
    case MSideDirection::Bottom: return MAxis::X;
    }
    MRaise(MExceptionGeneral, "Invalid side-layout direction.");
}
