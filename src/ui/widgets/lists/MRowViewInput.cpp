#include "ui/control/windows/MWindows.h"
#include "ui/widgets/lists/MRowView.h"

#include <algorithm>

namespace {

int64_t GetTime() {
    MWindows* const windows = MWindows::GetInstance();
    return windows ? windows->GetSystem().GetTime() : 0;
}

}  // namespace

int32_t MRowView::FindSelectable(int32_t row, int32_t step) {
    for (row += step; row >= 0 && row < GetRowCount(); row += step)
        if (GetRow(row).IsSelectable()) return row;
    return -1;
}

int32_t MRowView::FindPage(int32_t step) {
    const int32_t count = GetRowCount();
    const int32_t lines = places.GetCount();
    if (count == 0) return -1;
    const int32_t start = std::max(focusedRow, 0);
    const int32_t line = start % lines;
    const int32_t page = viewRect.GetHeight() - places.GetHeight(line);
    int32_t there = places.FindLine(places.GetTop(line) + int64_t{step} * page);
    // A row that is higher than the view does not stop the walk.
    if (there == line) there += step;
    const int32_t target = std::clamp(start - line + there, 0, count - 1);
    const int32_t row = FindSelectable(target + step, -step);
    // Rows that cannot be chosen may fill a page.
    return row >= 0 && (row - start) * step > 0 ? row : FindSelectable(target, step);
}

bool MRowView::IsTyping() const {
    return typeAhead.IsTyping(GetTime());
}

bool MRowView::ProcessMove(int32_t key, MKeyModifiers modifiers) {
    EnsurePlaces();
    const int32_t count = GetRowCount();
    int32_t row = -1;
    switch (key) {
    case MKeyUp: row = FindSelectable(focusedRow < 0 ? count : focusedRow, -1); break;
    case MKeyDown: row = FindSelectable(focusedRow, 1); break;
    case MKeyHome: row = FindSelectable(-1, 1); break;
    case MKeyEnd: row = FindSelectable(count, -1); break;
    case MKeyPageUp: row = FindPage(-1); break;
    case MKeyPageDown: row = FindPage(1); break;
    case MKeyLeft:
    case MKeyRight:
        if (columnCount == 1) return false;
        row = std::max(focusedRow, 0) + (key == MKeyLeft ? -1 : 1) * places.GetCount();
        if (row < 0 || row >= count || !GetRow(row).IsSelectable()) row = -1;
        break;
    default: return false;
    }
    if (row < 0) return true;
    const MControlRef self(this);
    GoTo(row, modifiers);
    if (self) ScrollToRow(row);
    return true;
}

bool MRowView::ProcessCharacter(char16_t unit, MKeyModifiers modifiers) {
    if (MChar(unit).IsControl() || modifiers & (MModifierControl | MModifierAlt)) return false;
    if (unit == ' ' && !IsTyping()) return false;
    const int32_t row = typeAhead.Type(unit, GetTime(), focusedRow, GetRowCount(), [this](int32_t other) {
        MListBoxItemBaseWithFeatures& item = GetRow(other);
        return item.IsSelectable() ? item.GetPlainText() : MString();
    });
    if (row < 0) return true;
    const MControlRef self(this);
    GoTo(row, MModifierNone);
    if (self) ScrollToRow(row);
    return true;
}

bool MRowView::ScrollBySteps(int32_t steps) {
    const int64_t before = scrollPlace;
    ScrollTo(scrollPlace - int64_t{steps} * WheelRows * places.GetEstimate());
    return scrollPlace != before;
}

bool MRowView::ProcessEvent(const MSystemEvent& event) {
    switch (event.type) {
    case MEventType::MouseMove: SetHoveredRow(FindRowAt(GetOwnPoint(event.point))); return false;
    case MEventType::MouseLeave: SetHoveredRow(-1); return false;
    case MEventType::Wheel: {
        const MControlRef self(this);
        const bool isConsumed = ProcessWheel(event.wheelDelta);
        if (self) SetHoveredRow(FindRowAt(GetOwnPoint(event.point)));
        return isConsumed;
    }
    case MEventType::GotFocus:
    case MEventType::LostFocus: Invalidate(); return MControl::ProcessEvent(event);
    case MEventType::Character:
        return ProcessCharacter(event.character, event.modifiers) || MControl::ProcessEvent(event);
    case MEventType::KeyDown: return ProcessMove(event.key, event.modifiers) || MControl::ProcessEvent(event);
    default: return MControl::ProcessEvent(event);
    }
}
