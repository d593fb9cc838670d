#include "ui/widgets/values/MControlValueVerticalDragging.h"

#include <algorithm>

bool MControlValueVerticalDragging::ProcessEvent(const MSystemEvent& event) {
    const MPoint point = GetOwnPoint(event.point);
    switch (event.type) {
    case MEventType::LeftDown:
        if (event.Has(MModifierShift)) break;
        Begin(event.Has(MModifierControl) ? Drag::Accurate : Drag::Plain, point);
        return true;
    case MEventType::MiddleDown: Begin(Drag::Accurate, point); return true;
    case MEventType::MouseMove:
        if (IsDragged()) MoveTo(point);
        return true;
    case MEventType::LeftUp:
    case MEventType::MiddleUp:
        if (!IsDragged()) break;
        End();
        return true;
    case MEventType::RightDown:
    case MEventType::Wheel:
        if (IsDragged()) return true;
        break;
    case MEventType::KeyDown:
        if (!IsDragged()) break;
        if (event.key == MKeyEscape || event.key == MKeyBackspace) Cancel();
        return true;
    default: break;
    }
    return MControlValue::ProcessEvent(event);
}

bool MControlValueVerticalDragging::IsDragged() const {
    return drag != Drag::None && (Is(MControlFlag::LeftDown) || Is(MControlFlag::MiddleDown));
}

void MControlValueVerticalDragging::Begin(Drag newDrag, MPoint point) {
    drag = newDrag;
    lastPoint = point;
    startValue = GetActiveValue().GetNormalized();
    draggedValue = newDrag == Drag::Plain ? GetGrabbedPosition(point) : startValue;
    if (draggedValue != startValue)
        Modify([this](MValue& active) { active.SetNormalized(draggedValue); }, Change::Intermediate);
}

void MControlValueVerticalDragging::MoveTo(MPoint point) {
    constexpr int32_t AccurateSlowness = 10;
    if (point == lastPoint) return;
    draggedValue = drag == Drag::Plain ? GetDraggedPosition(point) : GetVertically(point, AccurateSlowness);
    lastPoint = point;
    Modify([this](MValue& active) { active.SetNormalized(draggedValue); }, Change::Intermediate);
}

double MControlValueVerticalDragging::GetDraggedPosition(MPoint point) {
    return GetVertically(point, 1);
}

double MControlValueVerticalDragging::GetVertically(MPoint point, int32_t slowness) {
    constexpr int32_t WholeWay = 200;
    MStyle* const style = GetStyle();
    const int32_t way = std::max(style ? style->ScaleY(WholeWay) : WholeWay, 1) * slowness;
    return std::clamp(draggedValue + static_cast<double>(lastPoint.y - point.y) / way, 0.0, 1.0);
}

void MControlValueVerticalDragging::End() {
    drag = Drag::None;
    if (GetActiveValue().GetNormalized() != startValue) OnChange(Change::Committed).Fire({this});
}

void MControlValueVerticalDragging::Cancel() {
    drag = Drag::None;
    Modify([this](MValue& active) { active.SetNormalized(startValue); });
}

void MControlValueVerticalDragging::OnCaptureLost() {
    const MControlRef self(this);
    if (IsDragged()) End();
    if (self) MControlValue::OnCaptureLost();
}
