#include "ui/widgets/values/MTracker.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/values/MValueLooks.h"

#include <algorithm>
#include <cmath>

MTracker::MTracker(MControl* parent, const MString& name) : MControlValueVerticalDragging(parent, name) {
    SetControlType(MControlType::Tracker);
}

void MTracker::SetMaxValue(MValue* newValue) {
    maxValue = newValue;
    isMaximumActive = false;
    OnValueChanged();
    if (ownMaxValue.get() != newValue) ownMaxValue.reset();
}

void MTracker::SetMaxValue(std::unique_ptr<MValue> newValue) {
    SetMaxValue(newValue.get());
    ownMaxValue = std::move(newValue);
}

MValue& MTracker::GetActiveValue() const {
    return isMaximumActive && maxValue ? *maxValue : GetValue();
}

MString MTracker::GetEditCaption() const {
    return isMaximumActive && maxValue ? MTranslate("Enter new maximum value")
                                       : MControlValueVerticalDragging::GetEditCaption();
}

void MTracker::OnValueChanged() {
    if (maxValue && GetValue().GetNormalized() > maxValue->GetNormalized()) {
        if (isMaximumActive)
            maxValue->SetNormalized(GetValue().GetNormalized());
        else
            GetValue().SetNormalized(maxValue->GetNormalized());
    }
    MControlValueVerticalDragging::OnValueChanged();
}

MString MTracker::GetValueText() {
    const MString text = MControlValueVerticalDragging::GetValueText();
    return maxValue ? MFormat("{0} - {1}", text, maxValue->GetText()) : text;
}

/// As wide as it can be told apart by the mouse, and as high as a text.
void MTracker::GetMinimalContentSize(int32_t& x, int32_t& y) {
    constexpr int32_t Width = 96;
    MControlValueVerticalDragging::GetMinimalContentSize(x, y);
    MStyle* const style = GetStyle();
    x = style ? style->ScaleX(Width) : Width;
}

void MTracker::PaintContent(MDrawer& drawer) {
    MStyle* const style = GetStyle();
    if (!style) return;
    MValueLook look = MGetValueLook(GetValue(), GetDrawState());
    if (maxValue) look.maxValue = maxValue->GetNormalized();
    style->PaintValue(*this, drawer, windowRect, look);
}

double MTracker::GetPosition(MPoint point) {
    MStyle* const style = GetStyle();
    return style ? std::clamp(style->GetTrackerPosition(*this, point), 0.0, 1.0) : 0;
}

bool MTracker::IsNearerToMaximum(MPoint point) {
    if (!maxValue) return false;
    const double position = GetPosition(point);
    const double low = GetValue().GetNormalized();
    const double high = maxValue->GetNormalized();
    // Where both are at one place, the mouse takes the one that can go to its side.
    return low == high ? position > low || low == 0 : std::abs(position - high) < std::abs(position - low);
}

double MTracker::GetGrabbedPosition(MPoint point) {
    MStyle* const style = GetStyle();
    const double before = GetActiveValue().GetNormalized();
    const double position = GetPosition(point);
    const bool isOnLocator = style && style->GetTrackerRect(*this, before).Contains(point);
    grabOffset = isOnLocator ? position - before : 0;
    return position - grabOffset;
}

double MTracker::GetDraggedPosition(MPoint point) {
    return std::clamp(GetPosition(point) - grabOffset, 0.0, 1.0);
}

bool MTracker::ProcessEvent(const MSystemEvent& event) {
    const bool choosesByPlace =
        event.IsPress() || event.type == MEventType::LeftDoubleClick || event.type == MEventType::Wheel;
    const bool isHeld = Is(MControlFlag::LeftDown) && event.type != MEventType::LeftDown &&
                        event.type != MEventType::LeftDoubleClick;
    if (choosesByPlace && !isHeld)
        isMaximumActive = IsNearerToMaximum(GetOwnPoint(event.point));
    else if (event.type == MEventType::KeyDown && event.key != MKeyShift && !isHeld)
        isMaximumActive = maxValue && event.Has(MModifierShift);
    return MControlValueVerticalDragging::ProcessEvent(event);
}

void MTracker::LoadFromXml(MXMLItem& item) {
    if (maxValue && item.HasAttribute("maxvalue")) maxValue->FromStorageText(item.GetCachedAttribute());
    MControlValueVerticalDragging::LoadFromXml(item);
}

void MTracker::SaveValueState(MXMLItem& item) {
    MControlValueVerticalDragging::SaveValueState(item);
    if (maxValue) item.SetAttribute("MaxValue", maxValue->ToStorageText());
}

void MTracker::LoadValueState(MXMLItem& item) {
    // The second one first, and the whole range for it.
    if (maxValue && item.HasAttribute("MaxValue")) {
        GetValue().SetNormalized(0);
        maxValue->FromStorageText(item.GetCachedAttribute());
    }
    isMaximumActive = false;
    MControlValueVerticalDragging::LoadValueState(item);
}
