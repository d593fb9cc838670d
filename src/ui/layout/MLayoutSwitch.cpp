#include "ui/layout/MLayoutSwitch.h"

#include "ui/control/MControl.h"
#include "ui/geometry/MLength.h"

#include <algorithm>
#include <deque>

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

namespace {

/// Keeps a window from being painted for the length of a block.
class FreezeScope {
public:
    explicit FreezeScope(MControl& root) : root(&root), wasFrozen(root.Is(MControlFlag::Frozen)) {
        root.SetFrozen(true);
    }
    FreezeScope(const FreezeScope&) = delete;
    FreezeScope& operator=(const FreezeScope&) = delete;
    ~FreezeScope() {
        if (root) root->SetFrozen(wasFrozen);
    }

private:
    const MControlRef root;
    const bool wasFrozen;
};

}  // namespace

void MLayoutSwitch::SetActive(MControl* control) {
    if (!control && !controls.IsEmpty()) control = controls[0];
    const MControlRef arranged(&GetOwner());
    const FreezeScope frozen(arranged->GetRoot());
    // What is hidden hears of it, and may end any of them, and the layout too.
    std::deque<MControlRef> all;
    for (MControl* each : controls) all.emplace_back(each);
    for (const MControlRef& each : all)
        if (each) each->SetVisible(each.Get() == control);
    if (arranged) arranged->ArrangeChildren();
    if (arranged) arranged->NotifySizes();
}

MControl* MLayoutSwitch::GetActive() const {
    const auto isVisible = [](const MControl* control) { return control->Is(MControlFlag::Visible); };
    const auto found = std::find_if(controls.begin(), controls.end(), isVisible);
    return found == controls.end() ? nullptr : *found;
}
