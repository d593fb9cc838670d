#include "ui/widgets/scrolling/MScrollBar.h"

#include "foundation/text/MNumberText.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// Of such numbers differences are finite as well.
double Finite(double value) {
    constexpr double Limit = 1e300;
    return std::isfinite(value) ? std::clamp(value, -Limit, Limit) : 0;
}

/// A length of a share of `whole`, rounded.
int32_t GetShare(int32_t whole, double share) {
    return static_cast<int32_t>(std::lround(whole * std::clamp(share, 0.0, 1.0)));
}

}  // namespace

MScrollBar::MScrollBar(MControl* parent, const MString& name, bool isVertical)
    : MControl(parent, name), isVertical(isVertical) {
    SetControlType(isVertical ? MControlType::VScrollBar : MControlType::HScrollBar);
    Set(MControlFlag::HotTrack);
    layoutRatio[Across(GetAxis())] = 0;
}

void MScrollBar::SetVertical(bool newIsVertical) {
    if (isVertical == newIsVertical) return;
    isVertical = newIsVertical;
    SetControlType(isVertical ? MControlType::VScrollBar : MControlType::HScrollBar);
    std::swap(layoutRatio.x, layoutRatio.y);
}

double MScrollBar::LimitPage(double page) const {
    return std::max(0.0, page);
}

double MScrollBar::GetLastPosition() const {
    return std::max(minimum, maximum - pageSize);
}

void MScrollBar::SetRange(double newMinimum, double newMaximum) {
    minimum = Finite(newMinimum);
    maximum = std::max(minimum, Finite(newMaximum));
    Invalidate();
    SetView(pageSize, scrollPosition);
}

void MScrollBar::SetPageSize(double newPageSize) {
    SetView(newPageSize, scrollPosition);
}

void MScrollBar::SetIncrease(double newIncrease) {
    increase = std::max(0.0, Finite(newIncrease));
}

void MScrollBar::SetPosition(double newPosition) {
    SetView(pageSize, newPosition);
}

void MScrollBar::SetView(double newPageSize, double newPosition) {
    const double oldPage = std::exchange(pageSize, LimitPage(Finite(newPageSize)));
    const double oldPosition = std::exchange(scrollPosition, minimum);
    scrollPosition = std::clamp(Finite(newPosition), minimum, GetLastPosition());
    if (pageSize == oldPage && scrollPosition == oldPosition) return;
    Invalidate();
    ExecuteOnChange();
}

void MScrollBar::Show(double newMinimum, double newMaximum, double newPageSize, double newPosition) {
    const auto getAll = [&] { return std::array{minimum, maximum, pageSize, scrollPosition}; };
    const auto before = getAll();
    minimum = Finite(newMinimum);
    maximum = std::max(minimum, Finite(newMaximum));
    pageSize = LimitPage(Finite(newPageSize));
    scrollPosition = std::clamp(Finite(newPosition), minimum, GetLastPosition());
    if (getAll() != before) Invalidate();
}

int32_t MScrollBar::GetThickness() {
    int32_t length = 0;
    int32_t thickness = 0;
    GetMinimalContentSize(isVertical ? thickness : length, isVertical ? length : thickness);
    MStyle* const style = GetStyle();
    if (!style) return thickness;
    MPoint size;
    size[GetAxis()] = length;
    size[Across(GetAxis())] = thickness;
    size = style->ConvertToWindow(*this, size);
    return std::max(size[Across(GetAxis())], style->GetMinimalSize(*this)[Across(GetAxis())]);
}

void MScrollBar::LoadFromXml(MXMLItem& item) {
    const auto getNumber = [&](const char* attribute, double defaultValue) {
        return item.HasAttribute(attribute) ? MParseDouble(item.GetCachedAttribute()) : defaultValue;
    };
    if (item.HasAttribute("vertical")) SetVertical(item.GetInt32Attribute("vertical") != 0);
    SetRange(getNumber("mmin", minimum), getNumber("mmax", maximum));
    SetPageSize(getNumber("pagesize", pageSize));
    SetIncrease(getNumber("increase", increase));
    SetPosition(getNumber("position", scrollPosition));
    MControl::LoadFromXml(item);
}

void MScrollBar::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStyle* const style = GetStyle();
    if (!style) return;
    const MPoint arrow = style->GetPartSize(*this, MStylePart::ScrollArrow);
    const MPoint thumb = style->GetPartSize(*this, MStylePart::ScrollThumb);
    (isVertical ? y : x) = 2 * arrow[GetAxis()] + thumb[GetAxis()];
    (isVertical ? x : y) = arrow[Across(GetAxis())];
}

MFlexibility MScrollBar::GetFlexibility() {
    return isVertical ? MFlexibleY : MFlexibleX;
}

MScrollBarParts MScrollBar::GetParts() {
    MScrollBarParts parts;
    MStyle* const style = GetStyle();
    if (!style) return parts;
    const MAxis axis = GetAxis();
    const int32_t arrow = style->GetPartSize(*this, MStylePart::ScrollArrow)[axis];
    const int32_t least = style->GetPartSize(*this, MStylePart::ScrollThumb)[axis];
    parts.track = GetBarRectangle();
    if (arrow > 0 && parts.track.GetLength(axis) >= 2 * arrow + least) {
        parts.decrease = parts.increase = parts.track;
        parts.decrease.SetHigh(axis, parts.track.GetLow(axis) + arrow - 1);
        parts.increase.SetLow(axis, parts.track.GetHigh(axis) - arrow + 1);
        parts.track.SetLow(axis, parts.track.GetLow(axis) + arrow);
        parts.track.SetHigh(axis, parts.track.GetHigh(axis) - arrow);
    }
    const double range = maximum - minimum;
    const int32_t length = std::max(0, parts.track.GetLength(axis));
    const int32_t thumb =
        std::min(length, std::max(least, CanScroll() ? GetShare(length, pageSize / range) : length));
    const double share = CanScroll() ? (scrollPosition - minimum) / (GetLastPosition() - minimum) : 0;
    parts.thumb = parts.track;
    parts.thumb.SetLow(axis, parts.track.GetLow(axis) + GetShare(length - thumb, share));
    parts.thumb.SetHigh(axis, parts.thumb.GetLow(axis) + thumb - 1);

    const auto getState = [&](Place place, bool isAlive) {
        uint8_t state = IsEnabled() && isAlive ? MDrawEnabled : MDrawDisabled;
        if (focusOwner->HasFocus()) state |= MDrawFocused;
        if (place == hovered) state |= MDrawHighlighted;
        if (place == pressed) state |= MDrawClicked;
        return state;
    };
    parts.trackState = getState(Place::None, true) & (MDrawEnabled | MDrawFocused);
    parts.thumbState = getState(Place::Thumb, CanScroll());
    parts.decreaseState = getState(Place::Decrease, scrollPosition > minimum);
    parts.increaseState = getState(Place::Increase, scrollPosition < GetLastPosition());
    return parts;
}

MScrollBar::Place MScrollBar::GetPlaceAt(MPoint point) {
    const MScrollBarParts parts = GetParts();
    if (parts.decrease.Contains(point)) return Place::Decrease;
    if (parts.increase.Contains(point)) return Place::Increase;
    if (parts.thumb.Contains(point)) return Place::Thumb;
    if (!parts.track.Contains(point)) return Place::None;
    return point[GetAxis()] < parts.thumb.GetLow(GetAxis()) ? Place::TrackBefore : Place::TrackBehind;
}

double MScrollBar::GetLengthOf(int32_t pixels) {
    const MScrollBarParts parts = GetParts();
    const int32_t room = parts.track.GetLength(GetAxis()) - parts.thumb.GetLength(GetAxis());
    return room > 0 ? pixels * (GetLastPosition() - minimum) / room : 0;
}

void MScrollBar::PaintContent(MDrawer& drawer) {
    MStyle* const style = GetStyle();
    if (!style) return;
    const MScrollBarParts parts = GetParts();
    isVertical ? style->PaintVerticalScrollBar(*this, drawer, parts)
               : style->PaintHorizontalScrollBar(*this, drawer, parts);
}

bool MScrollBar::ProcessEvent(const MSystemEvent& event) {
    if (event.HasPosition() || event.type == MEventType::MouseLeave) return ProcessMouse(event);
    if (event.type == MEventType::KeyDown && ProcessKey(event)) return true;
    return MControl::ProcessEvent(event);
}

bool MScrollBar::ProcessMouse(const MSystemEvent& event) {
    mouse = GetOwnPoint(event.point);
    switch (event.type) {
    case MEventType::LeftDown:
    case MEventType::LeftDoubleClick: Press(mouse); return true;
    case MEventType::LeftUp: Release(); return true;
    case MEventType::MouseMove:
        if (pressed == Place::Thumb)
            SetPosition(dragPosition + GetLengthOf(mouse[GetAxis()] - dragPoint[GetAxis()]));
        else
            SetHovered(GetPlaceAt(mouse));
        return true;
    case MEventType::MouseLeave: SetHovered(Place::None); return false;
    case MEventType::Wheel:
        if (!CanScroll()) return false;
        Scroll(-event.wheelDelta * StepsOfWheel);
        return true;
    default: return false;
    }
}

bool MScrollBar::ProcessKey(const MSystemEvent& event) {
    switch (event.key) {
    case MKeyLeft:
    case MKeyUp:
    case MKeyRight:
    case MKeyDown:
        if (isVertical != (event.key == MKeyUp || event.key == MKeyDown)) return false;
        Scroll(event.key == MKeyLeft || event.key == MKeyUp ? -1 : 1);
        return true;
    case MKeyPageUp: SetPosition(scrollPosition - pageSize); return true;
    case MKeyPageDown: SetPosition(scrollPosition + pageSize); return true;
    case MKeyHome: SetPosition(minimum); return true;
    case MKeyEnd: SetPosition(GetLastPosition()); return true;
    case MKeyEscape:
        if (pressed != Place::Thumb) return false;
        pressed = Place::None;
        SetPosition(dragPosition);
        return true;
    default: return false;
    }
}

void MScrollBar::Press(MPoint point) {
    pressed = GetPlaceAt(point);
    Invalidate();
    if (pressed == Place::Thumb) {
        dragPoint = point;
        dragPosition = scrollPosition;
        return;
    }
    const MControlRef self(this);
    isRepeating = false;
    if (MoveOnce() && self) StartTimer(RepeatDelay);
}

void MScrollBar::Release() {
    StopTimer();
    const bool wasDragged = std::exchange(pressed, Place::None) == Place::Thumb;
    SetHovered(GetPlaceAt(mouse));
    Invalidate();
    if (wasDragged) OnChange(Change::Committed).Fire({this});
}

void MScrollBar::OnCaptureLost() {
    StopTimer();
    pressed = Place::None;
    MControl::OnCaptureLost();
}

bool MScrollBar::MoveOnce() {
    // A thumb that has come under the mouse stays there.
    if (pressed == Place::None || GetPlaceAt(mouse) != pressed) return pressed != Place::None;
    switch (pressed) {
    case Place::Decrease: Scroll(-1); break;
    case Place::Increase: Scroll(1); break;
    case Place::TrackBefore: SetPosition(scrollPosition - pageSize); break;
    case Place::TrackBehind: SetPosition(scrollPosition + pageSize); break;
    default: return false;
    }
    return true;
}

void MScrollBar::OnTimer() {
    if (!std::exchange(isRepeating, true)) StartTimer(RepeatInterval);
    (void)MoveOnce();
}

void MScrollBar::SetHovered(Place place) {
    if (std::exchange(hovered, place) != place) Invalidate();
}

void MScrollBar::WriteHelpInfo(MXMLItem& item) {
    MControl::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Left mouse button drag</control> of the thumb moves the view.",
        "<control>Left mouse button</control> on the track moves the view by a page, on an arrow by a step.",
        ("<control>Mouse-wheel</control> and <control>arrow keys</control> move the view by steps, "
         "<control>page-up</control> and <control>page-down</control> by pages."),
        "<control>Home</control> key moves to the beginning, <control>End</control> to the end."};
    MWriteUsage(item, "Scroll bar shows which part of something larger is visible, and moves it.", Entries);
}
