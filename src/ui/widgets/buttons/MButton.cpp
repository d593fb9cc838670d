#include "ui/widgets/buttons/MButton.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/kinds/MStdColor.h"
#include "ui/control/kinds/MStdFont.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>

MButton::MButton(MControl* parent, const MString& name) : MControlContent(parent, name) {
    SetControlType(MControlType::Button);
    for (const MControlFlag flag :
         {MControlFlag::HotTrack, MControlFlag::Pressable, MControlFlag::TellsClicks})
        Set(flag);
}

void MButton::OnClick(MPoint point) {
    const MControlRef self(this);
    if (isSwitchable && SetSwitched(!IsSwitched())) ExecuteOnChange();
    if (self) OnClick(Click::Left).Fire({this, point});
    if (self && modalValue != MModalValue::None) CloseWindow(modalValue);
}

void MButton::OnMouseReleased(MPoint point) {
    if (windowRect.Contains(point)) OnClick(point);
}

bool MButton::SetSwitched(bool isOn) {
    if (isOn == IsSwitched() || (variable && !isOn && !isUnswitchable)) return false;
    isSwitched = isOn;
    if (variable) {
        const int32_t before = std::exchange(*variable, isOn ? switchedValue : unswitchedValue);
        InvalidateRing(GetRoot(), variable, before, *variable);
    }
    Invalidate();
    return true;
}

void MButton::InvalidateRing(MControl& control, const int32_t* number, int32_t oneValue, int32_t otherValue) {
    const auto* const button = dynamic_cast<MButton*>(&control);
    if (button && button->variable == number &&
        (button->switchedValue == oneValue || button->switchedValue == otherValue))
        control.Invalidate();
    for (MControl* child : control.GetChildren()) InvalidateRing(*child, number, oneValue, otherValue);
}

void MButton::BindToValue(int32_t* newVariable) {
    variable = newVariable;
    Invalidate();
}

void MButton::BindToValue(int32_t* newVariable, int32_t newSwitchedValue, int32_t newUnswitchedValue) {
    switchedValue = newSwitchedValue;
    unswitchedValue = newUnswitchedValue;
    BindToValue(newVariable);
}

void MButton::SetSwitchedContent(std::unique_ptr<MContent> newContent) {
    switchedContent = std::move(newContent);
    OnContentChanged();
}

void MButton::SetDefault(bool isDefault) {
    Set(MControlFlag::DefaultButton, isDefault);
    OnContentChanged();
}

void MButton::SetBackgroundShown(bool isShown) {
    SetControlType(isShown ? MControlType::Button : MControlType::NoBackground);
}

void MButton::LoadFromXml(MXMLItem& item) {
    isSwitchable = item.GetInt32Attribute("switchable", isSwitchable) != 0;
    isUnswitchable = item.GetInt32Attribute("unswitchable", isUnswitchable) != 0;
    isSwitched = item.GetInt32Attribute("switched", isSwitched) != 0;
    switchedValue = item.GetInt32Attribute("switchedvalue", switchedValue);
    unswitchedValue = item.GetInt32Attribute("unswitchedvalue", unswitchedValue);
    if (item.HasAttribute("modalvalue"))
        modalValue = MValueEnum<MModalValue>::FromName(item.GetCachedAttribute());
    if (item.HasAttribute("showbackground"))
        SetBackgroundShown(item.GetInt32Attribute("showbackground") != 0);
    if (item.HasAttribute("default")) SetDefault(item.GetInt32Attribute("default") != 0);
    MControlContent::LoadFromXml(item);
}

MContent* MButton::GetContent() {
    return switchedContent && IsSwitched() ? switchedContent.get() : MControlContent::GetContent();
}

void MButton::GetMinimalContentSize(int32_t& x, int32_t& y) {
    const MPoint normal = GetNeededSize(MControlContent::GetContent());
    const MPoint switched = GetNeededSize(switchedContent.get());
    x = std::max(normal.x, switched.x);
    y = std::max(normal.y, switched.y);
}

MDrawState MButton::GetDrawState() {
    const MDrawState state = MControlContent::GetDrawState();
    if (isKeyPressed) return state | MDrawClicked;
    return Is(MControlFlag::LeftDown) && isMouseBeside ? static_cast<MDrawState>(state & ~MDrawClicked)
                                                       : state;
}

MContentLook MButton::GetContentLook() {
    MContentLook look = MControlContent::GetContentLook();
    if (Is(MControlFlag::DefaultButton) && look.font == static_cast<int32_t>(MStdFont::Normal))
        look.font = static_cast<int32_t>(MStdFont::Bold);
    return look;
}

bool MButton::Paint(MDrawer& drawer) {
    // The number that it is bound to may have been changed by anybody.
    Set(MControlFlag::Checked, IsSwitched());
    return MControlContent::Paint(drawer);
}

MRect MButton::GetOpaquePart() {
    Set(MControlFlag::Checked, IsSwitched());
    return MControlContent::GetOpaquePart();
}

void MButton::PaintContent(MDrawer& drawer) {
    MControlContent::PaintContent(drawer);
    if (GetControlType() != MControlType::NoBackground) return;
    constexpr uint8_t PressedAlpha = 230;
    constexpr uint8_t FocusedAlpha = 30;
    constexpr uint8_t HoveredAlpha = 10;
    const MDrawState state = GetDrawState();
    const MColor color =
        drawer.GetTextColor(static_cast<int32_t>(MStdColor::Text), GetContentLook().isInverted);
    if (state & MDrawClicked)
        drawer.FillRectangle(windowRect, color.WithAlpha(PressedAlpha), MDrawMode::Invert);
    else if (state & MDrawFocused)
        drawer.FillRectangle(windowRect, color.WithAlpha(FocusedAlpha), MDrawMode::Alphablend);
    else if (state & MDrawHighlighted)
        drawer.FillRectangle(windowRect, color.WithAlpha(HoveredAlpha), MDrawMode::Alphablend);
}

bool MButton::ProcessEvent(const MSystemEvent& event) {
    const MPoint point = GetOwnPoint(event.point);
    switch (event.type) {
    case MEventType::LeftDown:
        isMouseBeside = false;
        Invalidate();
        OnMousePressed(point);
        return true;
    case MEventType::LeftUp: ProcessRelease(point); return true;
    case MEventType::MouseMove:
        if (std::exchange(isMouseBeside, !windowRect.Contains(point)) != isMouseBeside &&
            Is(MControlFlag::LeftDown))
            Invalidate();
        return true;
    case MEventType::KeyDown:
    case MEventType::KeyUp:
        if (event.key == MKeyEnter || event.key == MKeySpace)
            return ProcessClickKey(event.type == MEventType::KeyDown);
        break;
    case MEventType::LostFocus:
        isKeyPressed = false;
        Invalidate();
        break;
    default: break;
    }
    return MControlContent::ProcessEvent(event);
}

/// Handlers may open windows, which have to get the mouse.
void MButton::ProcessRelease(MPoint point) {
    const MControlRef self(this);
    Set(MControlFlag::LeftDown, false);
    ReleaseCapture();
    if (!self) return;
    Invalidate();
    OnMouseReleased(point);
}

bool MButton::ProcessClickKey(bool isDown) {
    const MPoint middle{size.x / 2, size.y / 2};
    const bool wasPressed = std::exchange(isKeyPressed, isDown);
    // A key that was pressed elsewhere, as in a window that has been closed by it, is not this button's.
    if (!isDown && !wasPressed) return false;
    Invalidate();
    if (!isDown)
        OnKeyReleased(middle);
    else if (!wasPressed)
        OnKeyPressed(middle);
    return true;
}

bool MButton::ProcessGlobalEvent(const MSystemEvent& event) {
    const bool isKey = event.type == MEventType::KeyDown || event.type == MEventType::KeyUp;
    if (isKey && event.key == MKeyEnter) return ProcessClickKey(event.type == MEventType::KeyDown);
    return MControlContent::ProcessGlobalEvent(event);
}

void MButton::SaveValueState(MXMLItem& item) {
    item.SetAttribute("switched", IsSwitched() ? 1 : 0);
}

void MButton::LoadValueState(MXMLItem& item) {
    if (item.HasAttribute("switched") && SetSwitched(item.GetInt32Attribute("switched") != 0))
        ExecuteOnChange();
}

void MButton::WriteHelpInfo(MXMLItem& item) {
    MControlContent::WriteHelpInfo(item);
    constexpr const char* Entries[] = {"<control>Left mouse button</control>, <control>Enter</control> or "
                                       "<control>Space key</control> presses the button."};
    MWriteUsage(item, "", Entries);
}
