#include "ui/widgets/buttons/MCheckBox.h"

#include "foundation/base/MRaise.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/geometry/MLength.h"
#include "ui/widgets/buttons/MRadioGroup.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>

namespace {

/// A name, or its number.
MCheckBoxState ParseState(const MString& text) {
    const MString trimmed = text.Trimmed();
    const bool isNumber = trimmed.GetLength() == 1 && trimmed[0] >= '0' && trimmed[0] <= '2';
    return isNumber ? static_cast<MCheckBoxState>(trimmed[0] - u'0')
                    : MValueEnum<MCheckBoxState>::FromName(trimmed);
}

}  // namespace

MCheckBox::MCheckBox(MControl* parent, const MString& name) : MControlContent(parent, name) {
    SetControlType(MControlType::CheckBox);
    Set(MControlFlag::HotTrack);
    Set(MControlFlag::Pressable);
}

MCheckBox::~MCheckBox() {
    if (group) group->Remove(*this);
}

void MCheckBox::Set(MCheckBoxState newState) {
    if (newState < MCheckBoxState::Off || newState > MCheckBoxState::Grayed)
        MRaise(MExceptionInvalidArgument, "Invalid checkbox state to get image to.");
    if (newState == state) return;
    state = newState;
    Set(MControlFlag::Checked, IsOn());
    Invalidate();
    if (group && IsOn()) group->OnTurnedOn(*this);
}

void MCheckBox::Change(MCheckBoxState newState) {
    if (newState == state) return;
    Set(newState);
    ExecuteOnChange();
}

void MCheckBox::Toggle() {
    if (isRadioButton)
        Change(MCheckBoxState::On);
    else if (hasThreeStates)
        Change(static_cast<MCheckBoxState>((static_cast<int32_t>(state) + 1) % 3));
    else
        Change(state == MCheckBoxState::Off ? MCheckBoxState::On : MCheckBoxState::Off);
}

void MCheckBox::SetRadioButton(bool newIsRadioButton) {
    isRadioButton = newIsRadioButton;
    TouchSizes();
    Invalidate();
}

void MCheckBox::ResetToDefault() {
    const MControlRef self(this);
    MControlContent::ResetToDefault();
    if (self) Change(defaultState);
}

void MCheckBox::LoadFromXml(MXMLItem& item) {
    hasThreeStates = item.GetInt32Attribute("threestate", hasThreeStates) != 0;
    const auto read = [&item](const char* attribute, MCheckBoxState otherwise) {
        return item.HasAttribute(attribute) ? ParseState(item.GetCachedAttribute()) : otherwise;
    };
    defaultState = read("default", defaultState);
    Set(read("check", defaultState));
    if (item.HasAttribute("radiobutton")) SetRadioButton(item.GetInt32Attribute("radiobutton") != 0);
    MControlContent::LoadFromXml(item);
}

MPoint MCheckBox::GetMarkSize() {
    MStyle* const style = GetStyle();
    if (!style) return {};
    return style->GetPartSize(*this, isRadioButton ? MStylePart::RadioMark : MStylePart::CheckMark);
}

MPoint MCheckBox::GetMarkRoom() {
    MStyle* const style = GetStyle();
    const MPoint mark = GetMarkSize();
    if (!style || !GetContent()) return mark;
    return {mark.x + style->GetPartSize(*this, MStylePart::CheckMarkSpace).x, mark.y};
}

MRect MCheckBox::GetContentRectangle() {
    MRect rect = clientRect;
    rect.left += GetMarkRoom().x;
    return rect;
}

void MCheckBox::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MControlContent::GetMinimalContentSize(x, y);
    const MPoint mark = GetMarkRoom();
    x = MClampLength(int64_t{x} + mark.x);
    y = std::max(y, mark.y);
}

int32_t MCheckBox::ComputePlasticSize(int32_t dimension, int32_t otherDimensionSize) {
    const MPoint mark = GetMarkRoom();
    if (dimension == 0)
        return MClampLength(int64_t{MControlContent::ComputePlasticSize(0, otherDimensionSize)} + mark.x);
    return std::max(MControlContent::ComputePlasticSize(1, otherDimensionSize - mark.x), mark.y);
}

void MCheckBox::PaintContent(MDrawer& drawer) {
    if (MStyle* const style = GetStyle()) {
        const MRect mark = MAlignInside(clientRect, GetMarkSize(), MAlignLeft);
        style->PaintCheckMark(*this, drawer, mark,
                              isRadioButton ? MCheckMarkShape::RadioButton : MCheckMarkShape::CheckBox,
                              static_cast<int32_t>(state), GetDrawState());
    }
    MControlContent::PaintContent(drawer);
}

bool MCheckBox::ProcessEvent(const MSystemEvent& event) {
    const bool isKey = event.type == MEventType::KeyDown || event.type == MEventType::KeyUp;
    const bool isToggleKey = isKey && (event.key == MKeyEnter || event.key == MKeySpace);
    if (event.type == MEventType::LeftDown || (isToggleKey && event.type == MEventType::KeyDown)) {
        if (!event.isRepeated) Toggle();
        return true;
    }
    if (isToggleKey || event.type == MEventType::LeftUp) return true;
    if (group && event.type == MEventType::KeyDown) {
        if (event.key == MKeyUp || event.key == MKeyLeft) return GoTo(group->FindNext(*this, -1));
        if (event.key == MKeyDown || event.key == MKeyRight) return GoTo(group->FindNext(*this, 1));
    }
    return MControlContent::ProcessEvent(event);
}

bool MCheckBox::IsReachedByTab() {
    return !group || group->GetTabStop() == this;
}

bool MCheckBox::GoTo(MCheckBox& box) {
    const MControlRef next(&box);
    SetFocus(&box);
    if (next) box.Toggle();
    return true;
}

void MCheckBox::SaveValueState(MXMLItem& item) {
    item.SetAttribute("check", MValueEnum<MCheckBoxState>::ToName(state));
}

void MCheckBox::LoadValueState(MXMLItem& item) {
    if (item.HasAttribute("check")) Change(ParseState(item.GetCachedAttribute()));
}

void MCheckBox::WriteHelpInfo(MXMLItem& item) {
    MControlContent::WriteHelpInfo(item);
    constexpr const char* Entries[] = {"<control>Left mouse button</control>, <control>Enter</control> or "
                                       "<control>Space key</control> checks or unchecks the box."};
    MWriteUsage(item, "", Entries);
}
