#include "ui/widgets/splitters/MSplitter.h"

#include "foundation/events/MEmulatedLockGuard.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControlRoot.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/widgets/content/MHelpUsage.h"
#include "ui/widgets/splitters/MSplitterBar.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int32_t WholeRatio = 10000;

/// Panels and bar touch, whatever distances the style has.
class SplitterLayout final : public MLayoutClient {
public:
    explicit SplitterLayout(MControl& owner) : MLayoutClient(owner, MAxis::X) {
        space = -MControl::Unlimited / 2;
    }
};

}  // namespace

MSplitter::MSplitter(MControl* parent, const MString& name, bool isVertical) : MControl(parent, name) {
    SetControlType(MControlType::Empty);
    Set(MControlFlag::TabStop, false);
    Set(MControlFlag::SaveValue);
    auto* const layout = new SplitterLayout(*this);
    panels[0] = new MPanel(this, "Panel1");
    bar = new MSplitterBar(*this);
    panels[1] = new MPanel(this, "Panel2");
    for (MPanel* panel : panels) panel->SetControlType(MControlType::Empty);
    for (MControl* control :
         {static_cast<MControl*>(panels[0]), static_cast<MControl*>(bar), static_cast<MControl*>(panels[1])})
        layout->Attach(*control);
    axis = isVertical ? MAxis::X : MAxis::Y;
    ApplyDirection();
}

void MSplitter::SetVertical(bool newIsVertical) {
    const MAxis newAxis = newIsVertical ? MAxis::X : MAxis::Y;
    if (newAxis == axis) return;
    for (MPanel* panel : panels) std::swap(panel->layoutRatio.x, panel->layoutRatio.y);
    axis = newAxis;
    ApplyDirection();
    UpdateLayout();
}

void MSplitter::ApplyDirection() {
    const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
    static_cast<SplitterLayout*>(GetLayouts()[0])->direction = axis;
    bar->layoutRatio[axis] = 0;
    bar->layoutRatio[Across(axis)] = 100;
    TouchSizes();
}

void MSplitter::SetRatio(int32_t first, int32_t second) {
    panels[0]->layoutRatio[axis] = std::max(first, 1);
    panels[1]->layoutRatio[axis] = std::max(second, 1);
    if (!GetRoot().Is(MControlFlag::LayoutValid)) return;
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        ArrangeChildren();
    }
    Invalidate();
    NotifySizes();
}

void MSplitter::SetFirstLength(int32_t length) {
    const int32_t all = panels[0]->size[axis] + panels[1]->size[axis];
    const int32_t least = panels[0]->minimalSize[axis];
    length = std::clamp(length, least, std::max(least, all - panels[1]->minimalSize[axis]));
    if (all > 0) SetRatio(length, all - length);
}

void MSplitter::LoadFromXml(MXMLItem& item) {
    SetVertical(item.GetInt32Attribute("vertical", IsVertical()) != 0);
    LoadValueState(item);
    size_t index = 0;
    for (MXMLItem* sub : item.GetSubItems())
        if (sub->GetName() == "item" && index < panels.size()) panels[index++]->LoadFromXml(*sub);
    MControl::LoadFromXml(item);
}

void MSplitter::SaveValueState(MXMLItem& item) {
    const int64_t first = panels[0]->layoutRatio[axis];
    const int64_t all = first + panels[1]->layoutRatio[axis];
    item.SetAttribute("ratio", first * WholeRatio / std::max<int64_t>(all, 1));
}

void MSplitter::LoadValueState(MXMLItem& item) {
    const int32_t ratio = item.GetInt32Attribute("ratio", 0);
    if (ratio > 0 && ratio < WholeRatio) SetRatio(ratio, WholeRatio - ratio);
}

void MSplitter::ResetToDefault() {
    SetRatio(1, 1);
    MControl::ResetToDefault();
}

void MSplitter::WriteHelpInfo(MXMLItem& item) {
    MControl::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        ("<control>Left mouse button drag</control> or <control>arrow keys</control> move the bar between "
         "the panels."),
        "<control>Home</control> and <control>End</control> keys move it as far as possible.",
        "<control>Esc</control> restores its original place when hit during dragging."};
    MWriteUsage(item, "", Entries);
}
