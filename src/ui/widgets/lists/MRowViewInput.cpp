#include "ui/control/windows/MWindows.h"
#include "ui/widgets/lists/MRowView.h"

#include <algorithm>

namespace {

/// How many rows of the usual height a step of the wheel scrolls.
constexpr int32_t WheelRows = 3;

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

bool MRowView::IsTyping() const {
    return typeAhead.IsTyping(GetTime());
}

bool MRowView::ProcessMove(int32_t key, MKeyModifiers modifiers) {
    EnsurePlaces();
    const int32_t count = GetRowCount();
    const int32_t lines = places.GetCount();
    const bool isLost = focusedRow < 0;
    int32_t row = -1;
    switch (key) {
    case MKeyUp: row = FindSelectable(isLost ? count : focusedRow, -1); break;
    case MKeyDown: row = FindSelectable(focusedRow, 1); break;
    case MKeyHome: row = FindSelectable(-1, 1); break;
    case MKeyEnd: row = FindSelectable(count, -1); break;
    case MKeyLeft:
    case MKeyRight:
        if (columnCount == 1) return false;
        row = isLost ? 0 : focusedRow + (key == MKeyLeft ? -lines : lines);
        if (row < 0 || row >= count || !GetRow(row).IsSelectable()) row = -1;
        break;
    case MKeyPageUp:
    case MKeyPageDown: {
        if (lines == 0) return true;
        const int32_t line = std::max(focusedRow, 0) % lines;
        const int32_t page = GetViewRect().GetHeight() - places.GetHeight(line);
        const bool isUp = key == MKeyPageUp;
        const int32_t there = places.FindRow(places.GetTop(line) + (isUp ? -page : page));
        // A row that is higher than the view must not stop the walk.
        const int32_t next = there == line ? line + (isUp ? -1 : 1) : there;
        const int32_t target = std::clamp(std::max(focusedRow, 0) - line + next, 0, std::max(count - 1, 0));
        row = FindSelectable(target + (isUp ? -1 : 1), isUp ? 1 : -1);
        if (row < 0) row = FindSelectable(target, isUp ? -1 : 1);
        break;
    }
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

bool MRowView::ProcessEvent(const MSystemEvent& event) {
    switch (event.type) {
    case MEventType::MouseMove: SetHoveredRow(FindRowAt(GetOwnPoint(event.point))); return false;
    case MEventType::MouseLeave: SetHoveredRow(-1); return false;
    case MEventType::GotFocus:
    case MEventType::LostFocus: UpdateRow(focusedRow); return MControl::ProcessEvent(event);
    case MEventType::Wheel: {
        const int64_t before = scrollPlace;
        const int32_t step = WheelRows * (places.GetCount() > 0 ? places.GetHeight(0) : 1);
        ScrollTo(scrollPlace - int64_t{event.wheelDelta} * step);
        const MControlRef self(this);
        SetHoveredRow(FindRowAt(GetOwnPoint(event.point)));
        return !self || scrollPlace != before;
    }
    case MEventType::Character:
        return ProcessCharacter(event.character, event.modifiers) || MControl::ProcessEvent(event);
    case MEventType::KeyDown: return ProcessMove(event.key, event.modifiers) || MControl::ProcessEvent(event);
    default: return MControl::ProcessEvent(event);
    }
}
