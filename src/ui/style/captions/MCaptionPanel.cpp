#include "ui/style/captions/MCaptionPanel.h"

#include "ui/control/MStyle.h"

#include <utility>

MCaptionButtonControl::MCaptionButtonControl(MControl& panel, MControl& owner, MCaptionButton& button)
    : MControl(&panel, button.GetName()), owner(owner), button(button) {
    SetControlType(MControlType::CaptionButton);
    for (const MControlFlag flag : {MControlFlag::HotTrack, MControlFlag::Pressable}) Set(flag);
    for (const MControlFlag flag : {MControlFlag::TabStop, MControlFlag::AcceptsFocus})
        Set(flag, !owner.IsRoot());
    SetProperty(SpecialCaptionButtonTag, std::make_unique<MObject>());
    OnClick(Click::Left).Connect(this, &MCaptionButtonControl::OnButtonClick);
}

void MCaptionButtonControl::OnButtonClick(const MOnClickParams&) {
    if (button.TestFlags(MCaptionButton::Enabled)) button.Perform(owner);
}

void MCaptionButtonControl::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStyle* const style = GetStyle();
    MBitmap* const icon = style ? style->GetStdIcon(static_cast<int32_t>(button.GetIcon(owner))) : nullptr;
    x = icon ? icon->GetWidth() : 0;
    y = icon ? icon->GetHeight() : 0;
}

void MCaptionButtonControl::PaintContent(MDrawer& drawer) {
    MStyle* const style = GetStyle();
    MBitmap* const icon = drawer.GetStdIcon(static_cast<int32_t>(button.GetIcon(owner)));
    if (!style || !icon) return;
    MPoint place{clientRect.left + (clientRect.GetWidth() - icon->GetWidth()) / 2,
                 clientRect.top + (clientRect.GetHeight() - icon->GetHeight()) / 2};
    style->OffsetContent(*this, place);
    const bool isOn = button.TestFlags(MCaptionButton::Enabled) && IsEnabled();
    drawer.BitBltWhole(*icon, place, isOn ? 255 : style->GetDisabledAlpha(*this), MDrawMode::Alphablend);
}

bool MCaptionButtonControl::ProcessEvent(const MSystemEvent& event) {
    const bool isKey = event.key == MKeyEnter || event.key == MKeySpace;
    switch (event.type) {
    case MEventType::LeftDown:
    case MEventType::LeftUp: return true;
    case MEventType::KeyDown:
        if (isKey) pressedKey = event.key;
        return isKey || MControl::ProcessEvent(event);
    case MEventType::KeyUp:
        if (!isKey || std::exchange(pressedKey, 0) != event.key) return MControl::ProcessEvent(event);
        OnButtonClick({this, {}});
        return true;
    case MEventType::LostFocus: pressedKey = 0; [[fallthrough]];
    default: return MControl::ProcessEvent(event);
    }
}

MCaptionPanel::MCaptionPanel(MControl& owner) : MPanel(&owner, "CaptionPanel") {
    SetControlType(MControlType::Empty);
    Set(MControlFlag::OverlayControl);
    for (const MControlFlag flag :
         {MControlFlag::AdaptSize, MControlFlag::AutoDetectMinimalSize, MControlFlag::EnableSaveState})
        Set(flag, false);
}
