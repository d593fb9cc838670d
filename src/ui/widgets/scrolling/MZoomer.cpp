#include "ui/widgets/scrolling/MZoomer.h"

#include "foundation/text/MNumberText.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/geometry/MLength.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>
#include <cmath>
#include <utility>

MZoomer::MZoomer(MControl* parent, const MString& name, bool isVertical)
    : MScrollBar(parent, name, isVertical) {
    Set(MControlFlag::UseOverlays, false);
    const std::pair<MButton*, MStdIcon> buttons[] = {
        {&zoomDefault, MStdIcon::ZoomDefault}, {&zoomOut, MStdIcon::ZoomOut}, {&zoomIn, MStdIcon::ZoomIn}};
    for (const auto& [button, icon] : buttons) {
        button->Set(MControlFlag::OverlayControl);
        button->Set(MControlFlag::AdaptSize, false);
        button->Set(MControlFlag::TabStop, false);
        button->Set(MControlFlag::UseParentHelp);
        button->SetBackgroundShown(false);
        button->SetIcon(icon);
        button->MControl::OnClick(Click::Left).Connect(this, &MZoomer::OnButton);
    }
}

double MZoomer::LimitPage(double page) const {
    const double range = GetMaximum() - GetMinimum();
    return std::clamp(page, std::min(minimalPage, range), range);
}

void MZoomer::SetMinimalPageSize(double newMinimum) {
    minimalPage = std::isfinite(newMinimum) ? std::max(0.0, newMinimum) : 0;
    SetPageSize(GetPageSize());
}

void MZoomer::Zoom(double factor) {
    const double page = LimitPage(GetPageSize() * factor);
    SetView(page, GetPosition() + (GetPageSize() - page) / 2);
}

void MZoomer::ZoomToDefault() {
    SetView(GetMaximum() - GetMinimum(), GetMinimum());
}

void MZoomer::LoadFromXml(MXMLItem& item) {
    if (item.HasAttribute("minpagesize")) SetMinimalPageSize(MParseDouble(item.GetCachedAttribute()));
    MScrollBar::LoadFromXml(item);
}

void MZoomer::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MScrollBar::GetMinimalContentSize(x, y);
    int32_t& across = IsVertical() ? x : y;
    for (const MButton* button : {&zoomDefault, &zoomOut, &zoomIn})
        across = std::max(across, button->minimalSize[Across(GetAxis())]);
    (IsVertical() ? y : x) += 3 * across;
}

void MZoomer::AdjustRectangles(MRect&, MRect& newClientRect) {
    const MAxis axis = GetAxis();
    const int32_t side = newClientRect.GetLength(Across(axis));
    const bool hasRoom = newClientRect.GetLength(axis) >= 6 * side;
    for (MButton* button : {&zoomIn, &zoomOut, &zoomDefault}) {
        button->size = hasRoom ? MPoint{MClampLength(side), MClampLength(side)} : MPoint();
        if (!hasRoom) continue;
        newClientRect.SetHigh(axis, newClientRect.GetHigh(axis) - side);
        button->position = newClientRect.GetTopLeft();
        button->position[axis] = newClientRect.GetHigh(axis) + 1;
    }
}

MZoomer::End MZoomer::GetEndAt(MPoint point) {
    MStyle* const style = GetStyle();
    const MRect thumb = GetParts().thumb;
    if (!style || !thumb.Contains(point)) return End::None;
    // Where it is short, its middle still moves it.
    const int32_t end = std::min(IsVertical() ? style->ScaleY(EndSize) : style->ScaleX(EndSize),
                                 thumb.GetLength(GetAxis()) / 3);
    const int32_t place = point[GetAxis()];
    if (place < thumb.GetLow(GetAxis()) + end) return End::Low;
    return place > thumb.GetHigh(GetAxis()) - end ? End::High : End::None;
}

MStdCursor MZoomer::GetCursorAt(MPoint point) {
    if (dragged == End::None && GetEndAt(point) == End::None) return MScrollBar::GetCursorAt(point);
    return IsVertical() ? MStdCursor::ArrowUD : MStdCursor::ArrowLR;
}

void MZoomer::DragEnd(int32_t place) {
    const MRect track = GetParts().track;
    const double length = std::max(1, track.GetLength(GetAxis()));
    const double value =
        GetMinimum() + (place - track.GetLow(GetAxis())) / length * (GetMaximum() - GetMinimum());
    const double high = GetPosition() + GetPageSize();
    if (dragged == End::High)
        return SetView(std::min(LimitPage(value - GetPosition()), GetMaximum() - GetPosition()),
                       GetPosition());
    const double page = std::min(LimitPage(high - value), high - GetMinimum());
    SetView(page, high - page);
}

bool MZoomer::ProcessEvent(const MSystemEvent& event) {
    const MPoint point = GetOwnPoint(event.point);
    switch (event.type) {
    case MEventType::LeftDown:
    case MEventType::LeftDoubleClick:
        dragged = GetEndAt(point);
        if (dragged != End::None) return true;
        break;
    case MEventType::MouseMove:
        if (dragged == End::None) break;
        DragEnd(point[GetAxis()]);
        return true;
    case MEventType::LeftUp:
        if (std::exchange(dragged, End::None) == End::None) break;
        OnChange(Change::Committed).Fire({this});
        return true;
    case MEventType::Wheel:
        if (!event.Has(MModifierControl)) break;
        Zoom(std::pow(ZoomStep, -event.wheelDelta));
        return true;
    case MEventType::Character:
        if (event.character == '+') Zoom(1 / ZoomStep);
        if (event.character == '-') Zoom(ZoomStep);
        if (event.character == '/') ZoomToDefault();
        return true;
    default: break;
    }
    return MScrollBar::ProcessEvent(event);
}

void MZoomer::OnCaptureLost() {
    dragged = End::None;
    MScrollBar::OnCaptureLost();
}

void MZoomer::OnButton(const MOnClickParams& params) {
    if (params.control == &zoomDefault) return ZoomToDefault();
    Zoom(params.control == &zoomIn ? 1 / ZoomStep : ZoomStep);
}

void MZoomer::WriteHelpInfo(MXMLItem& item) {
    MScrollBar::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Plus (+) button</control> zooms-in.", "<control>Minus (-) button</control> zooms-out.",
        "<control>Slash (/) button</control> zooms to default ratio, which typically means full zoom-out.",
        ("<control>Left mouse button drag</control> of an end of the thumb and <control>Ctrl + mouse-wheel</control> "
         "zoom as well.")};
    MWriteUsage(item, "", Entries);
}
