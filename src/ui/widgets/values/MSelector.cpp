#include "ui/widgets/values/MSelector.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControlRoot.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>

MSelector::MSelector(MControl* parent, const MString& name)
    : MControlValue(parent, name), row(*new MLayoutHorizontal(*this)) {
    SetControlType(MControlType::Empty);
    Set(MControlFlag::TabStop, false);
}

void MSelector::MakeButtons(int32_t count) {
    constexpr int32_t MaximumButtons = 64;
    count = std::clamp(count, 0, MaximumButtons);
    while (static_cast<int32_t>(buttons.size()) > count) {
        delete buttons.back();
        buttons.pop_back();
    }
    while (static_cast<int32_t>(buttons.size()) < count) {
        auto* const button = new MButton(this);
        button->SetSwitchable(true);
        button->BindToValue(&index, static_cast<int32_t>(buttons.size()));
        button->Set(MControlFlag::EnableSaveState, false);
        button->Set(MControlFlag::UseParentHelp);
        button->OnChange().Connect(this, &MSelector::Choose);
        row.Add(*button);
        buttons.push_back(button);
    }
}

void MSelector::OnValueChanged() {
    const int32_t count = GetValue().GetDiscreteCount();
    MakeButtons(count);
    index = GetValue().GetDiscreteIndex();
    const bool hadFocus = Holds(GetRootState().focusedControl);
    for (size_t i = 0; i < buttons.size(); ++i) {
        buttons[i]->Set(MControlFlag::TabStop, static_cast<int32_t>(i) == index);
        const MString text = GetValue().GetTextAt(count > 1 ? static_cast<double>(i) / (count - 1) : 0);
        if (!buttons[i]->GetCaption().IsExactly(text)) buttons[i]->SetText(text);
    }
    Invalidate();
    if (hadFocus) FocusChosen();
}

void MSelector::FocusChosen() {
    const auto chosen = static_cast<size_t>(index);
    if (chosen < buttons.size()) buttons[chosen]->SetFocus();
}

void MSelector::Choose(const MOnNotifyParams&) {
    const int32_t chosen = index;
    index = GetValue().GetDiscreteIndex();
    const MControlRef self(this);
    Modify([chosen](MValue& active) { active.SetDiscreteIndex(chosen); });
    if (self) FocusChosen();
}

/// The button that has the focus would let arrows go on to its neighbours.
bool MSelector::PreviewEvent(MControl* target, const MSystemEvent& event) {
    const bool isOurs = event.type == MEventType::KeyDown && event.key >= MKeyEnd && event.key <= MKeyDown;
    if (isOurs) return MControlValue::ProcessEvent(event);
    return MControlValue::PreviewEvent(target, event);
}

void MSelector::LoadFromXml(MXMLItem& item) {
    if (item.HasAttribute("selected")) GetValue().SetDiscreteIndex(item.GetInt32Attribute("selected"));
    MControlValue::LoadFromXml(item);
    OnValueChanged();
}

void MSelector::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MControl::GetMinimalContentSize(x, y);
}

void MSelector::WriteHelpInfo(MXMLItem& item) {
    MControlContent::WriteHelpInfo(item);
    constexpr const char* Entries[] = {"<control>Left mouse button</control> selects a value.",
                                       "<control>Arrow keys</control>, <control>home</control> and "
                                       "<control>end</control> move the selection."};
    MWriteUsage(item, "", Entries);
}
