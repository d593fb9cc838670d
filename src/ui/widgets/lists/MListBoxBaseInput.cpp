#include "ui/control/MControlRoot.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/widgets/lists/MListBoxBase.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

/// How far a pressed button is moved until that is a drag, at 100 percent.
constexpr int32_t DragDistance = 4;
/// How often the view is scrolled while something is dragged beyond its edge, in milliseconds.
constexpr int32_t ScrollInterval = 40;
/// How thick the mark of a gap is, at 100 percent.
constexpr int32_t GapThickness = 2;

}  // namespace

void MListBoxBase::GoTo(int32_t row, MKeyModifiers modifiers) {
    if (isMultiSelect && modifiers & MModifierShift) {
        SelectRange(row);
    } else if ((isMultiSelect && modifiers & MModifierControl) ||
               (selectedItems.size() == 1 && GetRow(row).isSelected)) {
        return SetFocusedRow(row);
    } else {
        ClearSelection();
        SetRowSelected(row, true);
        SetFocusedRow(row);
        anchorRow = row;
    }
    OnSelected();
}

bool MListBoxBase::ProcessWheel(int32_t steps) {
    const int32_t step = steps > 0 ? -1 : 1;
    int32_t count = std::abs(steps) * (GetContentHeight() > GetViewRect().GetHeight() ? WheelRows : 1);
    int32_t row = GetFocusedRow();
    for (; count > 0; --count) {
        const int32_t next = FindSelectable(row, step);
        if (next < 0) break;
        row = next;
    }
    if (row < 0 || row == GetFocusedRow()) return ScrollBySteps(steps);
    const MControlRef self(this);
    GoTo(row, MModifierNone);
    if (self) ScrollToRow(row);
    return true;
}

bool MListBoxBase::ProcessPress(const MSystemEvent& event) {
    const MPoint point = GetOwnPoint(event.point);
    const int32_t row = FindRowAt(point);
    pressedRow = -1;
    drag = {point, point};
    if (row < 0 || !GetRow(row).IsSelectable()) return true;
    if (event.type == MEventType::LeftDown && GetCheckBoxRect(row, GetRowRect(row)).Contains(point)) {
        SetFocusedRow(row);
        ToggleCheck(row);
    } else if (event.Has(MModifierControl) && (isMultiSelect || GetRow(row).isSelected)) {
        SetRowSelected(row, !GetRow(row).isSelected);
        SetFocusedRow(row);
        anchorRow = row;
        OnSelected();
    } else if (GetRow(row).isSelected && !event.Has(MModifierShift)) {
        // Several selected rows may be about to be dragged together.
        if (event.type == MEventType::LeftDown) pressedRow = row;
        SetFocusedRow(row);
    } else {
        GoTo(row, event.modifiers);
    }
    return true;
}

int32_t MListBoxBase::FindGap(MPoint point) {
    const MRect& view = GetViewRect();
    const MPoint inside{std::clamp(point.x, view.left, std::max(view.left, view.right)),
                        std::clamp(point.y, view.top, std::max(view.top, view.bottom))};
    const int32_t row = FindRowAt(inside);
    if (row < 0) return GetRowCount();
    const MRect rect = GetRowRect(row);
    return row + (inside.y > (rect.top + rect.bottom) / 2 ? 1 : 0);
}

MRect MListBoxBase::GetGapRect() {
    if (drag.gap < 0 || GetRowCount() == 0) return {};
    const bool isLast = drag.gap >= GetRowCount();
    MRect rect = GetRowRect(isLast ? GetRowCount() - 1 : drag.gap);
    const int32_t edge = isLast ? rect.bottom + 1 : rect.top;
    const int32_t thickness = std::max(GetStyle()->ScaleY(GapThickness), 1);
    rect.top = std::clamp(edge - thickness / 2, GetViewRect().top,
                          std::max(GetViewRect().top, GetViewRect().bottom - thickness + 1));
    rect.bottom = rect.top + thickness - 1;
    return rect;
}

void MListBoxBase::SetGap(int32_t gap) {
    if (gap == drag.gap) return;
    InvalidateRect(GetGapRect());
    drag.gap = gap;
    InvalidateRect(GetGapRect());
}

void MListBoxBase::PaintContent(MDrawer& drawer) {
    MRowView::PaintContent(drawer);
    if (drag.gap >= 0) GetStyle()->PaintSelection(*this, drawer, GetGapRect(), MDrawEnabled);
}

void MListBoxBase::ProcessMouseMove(MPoint point) {
    drag.mouse = point;
    const MPoint way = point - drag.start;
    const int32_t distance = std::max(std::abs(way.x), std::abs(way.y));
    if (!drag.isActive && canReorder && !selectedItems.empty() && Is(MControlFlag::LeftDown) &&
        distance >= GetStyle()->ScaleX(DragDistance) && FindRowAt(drag.start) >= 0 &&
        GetRow(FindRowAt(drag.start)).isSelected) {
        drag.isActive = true;
        StartTimer(ScrollInterval);
    }
    if (drag.isActive) SetGap(FindGap(point));
}

void MListBoxBase::OnTimer() {
    const MRect& view = GetViewRect();
    const int32_t beyond = drag.mouse.y < view.top ? -1 : drag.mouse.y > view.bottom ? 1 : 0;
    if (beyond == 0) return;
    ScrollTo(GetScrollPlace() + int64_t{beyond} * GetLeastRowHeight());
    SetGap(FindGap(drag.mouse));
}

void MListBoxBase::EndDrag() {
    StopTimer();
    SetGap(-1);
    drag.isActive = false;
    pressedRow = -1;
}

void MListBoxBase::ProcessRelease() {
    const int32_t gap = drag.gap;
    const int32_t row = pressedRow;
    const bool wasDrag = drag.isActive;
    EndDrag();
    if (wasDrag)
        MoveSelected(gap);
    else if (row >= 0 && row < GetRowCount() && GetRow(row).isSelected)
        GoTo(row, MModifierNone);
}

void MListBoxBase::OnCaptureLost() {
    EndDrag();
    MRowView::OnCaptureLost();
}

bool MListBoxBase::ProcessRowKey(int32_t key, MKeyModifiers modifiers) {
    const int32_t row = GetFocusedRow();
    switch (key) {
    case MKeySpace:
        if (IsTyping() || row < 0) return true;
        if (GetRow(row).hasCheckBox && GetRow(row).IsSelectable()) {
            ToggleSelectedChecks(row);
        } else if (isMultiSelect && modifiers & MModifierControl) {
            SetRowSelected(row, !GetRow(row).isSelected);
            OnSelected();
        } else {
            GoTo(row, modifiers);
        }
        return true;
    case MKeyEnter: return row >= 0 && OnActivated(row);
    case MKeyEscape:
        if (!drag.isActive) return false;
        EndDrag();
        return true;
    case 'A':
        if (!isMultiSelect || !(modifiers & MModifierControl)) return false;
        SelectAll();
        OnSelected();
        return true;
    case MKeyUp:
    case MKeyDown: {
        const bool isMove = canReorder && modifiers & MModifierAlt;
        const MList<int32_t> rows = isMove ? GetSelectedRows() : MList<int32_t>();
        if (rows.IsEmpty()) return ProcessMove(key, modifiers);
        MoveSelected(key == MKeyUp ? rows[0] - 1 : rows[rows.GetCount() - 1] + 2);
        return true;
    }
    default: return ProcessMove(key, modifiers);
    }
}

bool MListBoxBase::ProcessEvent(const MSystemEvent& event) {
    const MControlRef self(this);
    switch (event.type) {
    case MEventType::LeftDown:
    case MEventType::RightDown: return ProcessPress(event);
    case MEventType::LeftDoubleClick: {
        const MPoint point = GetOwnPoint(event.point);
        const int32_t row = FindRowAt(point);
        // Who clicks a check box often means each click.
        const bool isActivation =
            row >= 0 && GetRow(row).IsSelectable() && !GetCheckBoxRect(row, GetRowRect(row)).Contains(point);
        return isActivation && OnActivated(row);
    }
    case MEventType::LeftUp: ProcessRelease(); return true;
    case MEventType::MouseMove:
        ProcessMouseMove(GetOwnPoint(event.point));
        return drag.isActive || MRowView::ProcessEvent(event);
    case MEventType::KeyDown:
        // Rows are checked and opened once, however long the key is held.
        if (event.isRepeated && (event.key == MKeySpace || event.key == MKeyEnter)) return true;
        return ProcessRowKey(event.key, event.modifiers) || !self || MControl::ProcessEvent(event);
    default: return MRowView::ProcessEvent(event);
    }
}
