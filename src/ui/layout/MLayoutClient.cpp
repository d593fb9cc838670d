#include "ui/layout/MLayoutClient.h"

#include "ui/control/MControl.h"
#include "ui/layout/MLayoutFlow.h"

MRect MLayoutClient::Arrange(MControl& arranged, const MRect& rect) {
    MLayoutFlow(controls, direction, GetSpace()).Flow(arranged, rect);
    return {};
}

void MLayoutClient::Measure(MControl&, MLayoutNeeds& needs, const SizeComputer& computer) {
    const MLayoutFlow flow(controls, direction, GetSpace());
    int32_t thickness = flow.GetThickness(computer);
    if (direction == MAxis::Y) thickness = needs.GetRoom(thickness);
    needs.Fill(direction, flow.MeasureFlow(computer, thickness));
    needs.Fill(Across(direction), thickness);
}

MFlexibility MLayoutClient::GetFlexibility() {
    MFlexibility flexibility = MFlexibleNone;
    for (MControl* control : controls) {
        if (!control->Is(MControlFlag::Visible)) continue;
        const MFlexibility stretching = (control->layoutRatio.x > 0 ? MFlexibleX : MFlexibleNone) |
                                        (control->layoutRatio.y > 0 ? MFlexibleY : MFlexibleNone);
        flexibility = flexibility | (control->GetFlexibility() & stretching);
    }
    return flexibility;
}
