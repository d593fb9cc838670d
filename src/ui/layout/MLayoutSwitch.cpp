#include "ui/layout/MLayoutSwitch.h"

#include "ui/control/MControl.h"
#include "ui/geometry/MLength.h"

#include <algorithm>

void MLayoutSwitch::Attach(MControl& control) {
    if (GetActive()) control.SetVisible(false);
    MLayout::Attach(control);
}

MRect MLayoutSwitch::Arrange(MControl& arranged, const MRect& rect) {
    MControl* const active = GetActive();
    if (!active) return rect;
    arranged.PlaceControl(*active, rect);
    return {};
}

void MLayoutSwitch::Measure(MControl&, MLayoutNeeds& needs, const SizeComputer& computer) {
    const auto counts = [&](const MControl* control) {
        return measureHidden || control->Is(MControlFlag::Visible);
    };
    MPoint size;
    for (MControl* control : controls)
        if (counts(control)) size.y = std::max(size.y, computer.GetY(*control));
    for (MControl* control : controls) {
        if (!counts(control)) continue;
        if (!control->Is(MControlFlag::Plastic)) {
            size.x = std::max(size.x, computer.GetX(*control));
            continue;
        }
        // What is as high as the highest of all needs less width.
        const int64_t borders = int64_t{2} * SizeComputer::GetBorder(*control, MAxis::X);
        const int64_t inside = size.y - int64_t{2} * SizeComputer::GetBorder(*control, MAxis::Y);
        size.x = std::max(size.x, MClampLength(control->GetPlasticSize(0, MClampLength(inside)) + borders));
    }
    needs.Fill(size);
}

MFlexibility MLayoutSwitch::GetFlexibility() {
    MFlexibility flexibility = MFlexibleNone;
    for (MControl* control : controls) flexibility = flexibility | control->GetFlexibility();
    return flexibility;
}

void MLayoutSwitch::SetActive(MControl* control) {
    if (!control && !controls.IsEmpty()) control = controls[0];
    MControl& root = GetOwner().GetRoot();
    const bool wasFrozen = root.Is(MControlFlag::Frozen);
    root.SetFrozen(true);
    for (MControl* each : controls) each->SetVisible(each == control);
    GetOwner().ArrangeChildren();
    root.SetFrozen(wasFrozen);
}

MControl* MLayoutSwitch::GetActive() const {
    const auto isVisible = [](const MControl* control) { return control->Is(MControlFlag::Visible); };
    const auto found = std::find_if(controls.begin(), controls.end(), isVisible);
    return found == controls.end() ? nullptr : *found;
}
