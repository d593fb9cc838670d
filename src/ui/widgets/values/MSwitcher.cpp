#include "ui/widgets/values/MSwitcher.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/geometry/MLength.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>

MSwitcher::MSwitcher(MControl* parent, const MString& name)
    : MControlValue(parent, name),
      upButton(AddButton("Up", MStdIcon::UpThin)),
      downButton(AddButton("Down", MStdIcon::DownThin)) {
    SetControlType(MControlType::Switcher);
    upButton.OnClick(Click::Left).Connect(this, &MSwitcher::GoUp);
    downButton.OnClick(Click::Left).Connect(this, &MSwitcher::GoDown);
}

MRepeaterButton& MSwitcher::AddButton(const char* name, MStdIcon icon) {
    auto* const button = new MRepeaterButton(this, name);
    button->SetIcon(icon);
    button->SetBackgroundShown(false);
    button->Set(MControlFlag::TabStop, false);
    button->Set(MControlFlag::UseParentHelp);
    button->layoutRatio = {0, 100};
    (new MLayoutRight(*this))->Add(*button);
    return *button;
}

void MSwitcher::GoUp(const MOnClickParams&) {
    const MControlRef self(this);
    SetFocus();
    if (self) Modify([](MValue& active) { (void)active.Step(1, false); });
}

void MSwitcher::GoDown(const MOnClickParams&) {
    const MControlRef self(this);
    SetFocus();
    if (self) Modify([](MValue& active) { (void)active.Step(-1, false); });
}

/// A button that leads nowhere is disabled.
void MSwitcher::OnValueChanged() {
    const MControlRef self(this);
    upButton.SetEnabled(GetValue().GetNormalized() < 1);
    if (self) downButton.SetEnabled(GetValue().GetNormalized() > 0);
    if (self) MControlValue::OnValueChanged();
}

void MSwitcher::LoadFromXml(MXMLItem& item) {
    if (item.HasAttribute("selected")) GetValue().SetDiscreteIndex(item.GetInt32Attribute("selected"));
    MControlValue::LoadFromXml(item);
    OnValueChanged();
}

MPoint MSwitcher::GetButtonSize() {
    MStyle* const style = GetStyle();
    return style ? style->GetPartSize(*this, MStylePart::SwitcherButton) : MPoint();
}

void MSwitcher::PrepareContent() {
    for (MRepeaterButton* button : {&upButton, &downButton}) button->size.x = GetButtonSize().x;
}

MRect MSwitcher::GetContentRectangle() {
    MRect rect = MControlValue::GetContentRectangle();
    rect.right = std::min(rect.right, downButton.windowOffset.x - windowOffset.x - 1);
    return rect;
}

void MSwitcher::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MControlValue::GetMinimalContentSize(x, y);
    MStyle* const style = GetStyle();
    const int32_t gap = style ? style->GetMetric(static_cast<int32_t>(MStyleMetric::DefLayoutSpace)) : 0;
    x = MClampLength(int64_t{x} + int64_t{2} * (GetButtonSize().x + gap));
    y = std::max(y, GetButtonSize().y);
}

bool MSwitcher::ProcessEvent(const MSystemEvent& event) {
    const bool isPlainPress = event.type == MEventType::LeftDown && !event.Has(MModifierShift);
    if (isPlainPress) {
        LetMouseGo([this] { (void)ShowMenu(); });
        return true;
    }
    return MControlValue::ProcessEvent(event);
}

void MSwitcher::WriteHelpInfo(MXMLItem& item) {
    MControlContent::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Left mouse button</control> shows a menu with list of all possible values. This function "
        "might be unavailable in certain cases when the number of possible values is too high.",
        "<control>Up</control> and <control>down</control> arrow keys, <control>buttons</control> in the "
        "control and <control>mouse-wheel</control> increase or decrease the value."};
    MWriteUsage(item, "", Entries);
}
