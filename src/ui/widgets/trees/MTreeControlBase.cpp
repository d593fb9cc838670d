#include "ui/widgets/trees/MTreeControlBase.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>
#include <utility>

MTreeControlBase::MTreeControlBase(MControl* parent, const MString& name) : MListBoxBase(parent, name) {
    SetControlType(MControlType::TreeControl);
}

void MTreeControlBase::SetRootShown(bool isShown) {
    isRootShown = isShown;
    areRowsStale = true;
    UpdateRows();
}

void MTreeControlBase::LoadFromXml(MXMLItem& item) {
    SetRootShown(item.GetInt32Attribute("showroot", isRootShown) != 0);
    MListBoxBase::LoadFromXml(item);
}

void MTreeControlBase::AppendRows(std::vector<MTreeItemBase*>& to, MTreeItemBase& item) {
    // Trees may be deep, so what is still to come waits here.
    std::vector<MTreeItemBase*> waiting{&item};
    while (!waiting.empty()) {
        MTreeItemBase& next = *waiting.back();
        waiting.pop_back();
        const bool isHiddenRoot = &next == &GetRootBase() && !isRootShown;
        if (!isHiddenRoot) to.push_back(&next);
        if (!next.isOpen && !isHiddenRoot) continue;
        for (int32_t i = next.children.GetCount() - 1; i >= 0; --i) waiting.push_back(next.children[i]);
    }
}

void MTreeControlBase::EnsureRows() {
    if (!std::exchange(areRowsStale, false)) return;
    const int32_t focused = GetFocusedRow();
    const bool hasFocused = focused >= 0 && focused < static_cast<int32_t>(rows.size());
    const MTreeItemBase* const item = hasFocused ? rows[static_cast<size_t>(focused)] : nullptr;
    rows.clear();
    AppendRows(rows, GetRootBase());
    SetFocusedRow(item ? FindRow(*item) : -1);
}

int32_t MTreeControlBase::GetRowCount() {
    EnsureRows();
    return static_cast<int32_t>(rows.size());
}

MTreeItemBase& MTreeControlBase::GetRow(int32_t row) {
    return *rows[static_cast<size_t>(row)];
}

int32_t MTreeControlBase::FindRow(const MTreeItemBase& item) {
    EnsureRows();
    const auto found = std::ranges::find(rows, &item);
    return found == rows.end() ? -1 : static_cast<int32_t>(found - rows.begin());
}

int32_t MTreeControlBase::CountRowsBelow(int32_t row) {
    const MTreeItemBase& item = GetRow(row);
    int32_t last = row + 1;
    while (last < GetRowCount() && item.Holds(&GetRow(last))) ++last;
    return last - row - 1;
}

void MTreeControlBase::InsertItem(MTreeItemBase& parent, MTreeItemBase* item, int32_t index) {
    const int32_t count = parent.children.GetCount();
    parent.InsertChild(index < 0 ? count : std::min(index, count), item);
    OnItemAdded(*item);
    areRowsStale = true;
    UpdateRows();
}

void MTreeControlBase::RemoveRows(int32_t row, int32_t count) {
    rows.erase(rows.begin() + row, rows.begin() + row + count);
    OnRowsRemoved(row, count);
}

void MTreeControlBase::ForgetBelow(MTreeItemBase& item) {
    std::vector<MTreeItemBase*> going(item.children.begin(), item.children.end());
    for (size_t i = 0; i < going.size(); ++i) {
        OnItemRemoved(*going[i]);
        going.insert(going.end(), going[i]->children.begin(), going[i]->children.end());
    }
}

void MTreeControlBase::DeleteItem(MTreeItemBase& item) {
    const int32_t row = FindRow(item);
    const int32_t count = row < 0 ? 0 : CountRowsBelow(row) + 1;
    ForgetBelow(item);
    OnItemRemoved(item);
    item.parent->RemoveChild(item.index);
    if (row >= 0) RemoveRows(row, count);
}

void MTreeControlBase::DeleteItemsBelow(MTreeItemBase& item) {
    const int32_t row = FindRow(item);
    const bool isHiddenRoot = row < 0 && &item == &GetRootBase();
    const int32_t count = isHiddenRoot ? GetRowCount() : row < 0 ? 0 : CountRowsBelow(row);
    ForgetBelow(item);
    item.children.Clear();
    if (count > 0) RemoveRows(row + 1, count);
}

void MTreeControlBase::SetItemOpen(MTreeItemBase& item, bool isOpen) {
    if (item.isOpen == isOpen) return;
    const MControlRef self(this);
    if (isOpen) {
        OnOpening(item);
        if (!self || item.isOpen) return;
    }
    const int32_t row = FindRow(item);
    if (!isOpen && row >= 0) {
        const int32_t count = CountRowsBelow(row);
        const bool hadFocus = GetFocusedRow() > row && GetFocusedRow() <= row + count;
        bool hadSelected = false;
        for (int32_t below = row + 1; below <= row + count; ++below) {
            hadSelected = hadSelected || GetRow(below).isSelected;
            SetRowSelected(below, false);
        }
        item.isOpen = false;
        RemoveRows(row + 1, count);
        // What was below is now seen as the item itself.
        if (hadFocus) SetFocusedRow(row);
        if (hadSelected && GetRow(row).IsSelectable()) SetRowSelected(row, true);
        UpdateRow(row);
        if (hadSelected) OnSelected();
        return;
    }
    item.isOpen = isOpen;
    if (row < 0) return;
    std::vector<MTreeItemBase*> below;
    AppendRows(below, item);
    rows.insert(rows.begin() + row + 1, below.begin() + 1, below.end());
    OnRowsInserted(row + 1, static_cast<int32_t>(below.size()) - 1);
    UpdateRow(row);
    // As much of what has come into being is shown as there is room for below the item.
    ScrollToRow(std::min(row + static_cast<int32_t>(below.size()) - 1, GetRowCount() - 1));
    ScrollToRow(row);
}

void MTreeControlBase::SelectTreeItem(MTreeItemBase* item) {
    std::vector<MTreeItemBase*> above;
    for (MTreeItemBase* on = item ? item->parent : nullptr; on; on = on->parent) above.push_back(on);
    const MControlRef self(this);
    for (auto on = above.rbegin(); self && on != above.rend(); ++on)
        if (*on != &GetRootBase() || isRootShown) SetItemOpen(**on, true);
    if (self) SelectRow(item ? FindRow(*item) : -1);
}

int32_t MTreeControlBase::GetDepth(const MTreeItemBase& item) const {
    int32_t depth = isRootShown ? 0 : -1;
    for (const MTreeItemBase* on = item.parent; on; on = on->parent) ++depth;
    return depth;
}

MPoint MTreeControlBase::GetStep() {
    return GetStyle()->GetPartSize(*this, MStylePart::TreeIndent);
}

int32_t MTreeControlBase::GetIndent(int32_t row) {
    return (GetDepth(GetRow(row)) + 1) * GetStep().x;
}

int32_t MTreeControlBase::GetLeastRowHeight() {
    return GetMetric(MStyleMetric::DefaultTreeItemHeight);
}

int32_t MTreeControlBase::GetCheckBoxSize() {
    return GetMetric(MStyleMetric::TreeItemCheckBoxSize);
}

MRect MTreeControlBase::GetExpanderRect(int32_t row) {
    const MTreeItemBase& item = GetRow(row);
    if (!item.CanOpen()) return {};
    const MRect rect = GetRowRect(row);
    const MPoint step = GetStep();
    const int32_t left = rect.left + GetRowBorder().x + GetDepth(item) * step.x;
    return MAlignInside(MRect::FromSize(left, rect.top, step.x, rect.GetHeight()), {step.y, step.y},
                        MAlignCenter);
}

void MTreeControlBase::PaintLines(MDrawer& drawer, int32_t row, const MRect& rect) {
    const MPoint step = GetStep();
    const MTreeItemBase* item = &GetRow(row);
    int32_t lines = MTreeLineRight;
    for (int32_t depth = GetDepth(*item); depth >= 0; --depth, item = item->parent) {
        const bool isOwn = item == &GetRow(row);
        if (!item->IsLast()) lines |= MTreeLineDown;
        // What goes on below comes from above, but for the first row of all.
        const bool isFirst = depth == 0 && item->index == 0;
        if ((isOwn || !item->IsLast()) && !(isOwn && isFirst)) lines |= MTreeLineUp;
        const MRect place = MRect::FromSize(rect.left + GetRowBorder().x + depth * step.x, rect.top, step.x,
                                            rect.GetHeight());
        if (lines) GetStyle()->PaintTreeLines(*this, drawer, place, lines);
        lines = 0;
    }
}

void MTreeControlBase::PaintItem(MDrawer& drawer, int32_t row, const MRect& rect, uint8_t drawState) {
    MListBoxBase::PaintItem(drawer, row, rect, drawState);
    PaintLines(drawer, row, rect);
    const MRect expander = GetExpanderRect(row);
    if (!expander.IsEmpty())
        GetStyle()->PaintTreeExpander(*this, drawer, expander, GetRow(row).isOpen, drawState);
}

void MTreeControlBase::ToggleRow(int32_t row) {
    MTreeItemBase& item = GetRow(row);
    if (item.CanOpen()) SetItemOpen(item, !item.isOpen);
}

bool MTreeControlBase::ProcessRowKey(int32_t key, MKeyModifiers modifiers) {
    const int32_t row = GetFocusedRow();
    MTreeItemBase* const item = row >= 0 && row < GetRowCount() ? &GetRow(row) : nullptr;
    if (!item) return MListBoxBase::ProcessRowKey(key, modifiers);
    const auto goTo = [&](int32_t target) {
        const MControlRef self(this);
        if (target >= 0 && GetRow(target).IsSelectable()) GoTo(target, modifiers);
        if (self) ScrollToRow(target);
    };
    switch (key) {
    case MKeyLeft:
        if (item->isOpen && item->CanOpen())
            SetItemOpen(*item, false);
        else if (item->parent)
            goTo(FindRow(*item->parent));
        return true;
    case MKeyRight:
        if (!item->isOpen)
            ToggleRow(row);
        else if (item->GetChildCount() > 0)
            goTo(row + 1);
        return true;
    case MKeyEnter:
        if (!item->CanOpen()) return MListBoxBase::ProcessRowKey(key, modifiers);
        ToggleRow(row);
        return true;
    case MKeyNumpadAdd:
    case MKeyNumpadSubtract:
        if (item->CanOpen()) SetItemOpen(*item, key == MKeyNumpadAdd);
        return true;
    default: return MListBoxBase::ProcessRowKey(key, modifiers);
    }
}

bool MTreeControlBase::ProcessEvent(const MSystemEvent& event) {
    const bool isDouble = event.type == MEventType::LeftDoubleClick;
    if (event.type == MEventType::LeftDown || isDouble) {
        const MPoint point = GetOwnPoint(event.point);
        const int32_t row = FindRowAt(point);
        if (row >= 0 && GetExpanderRect(row).Contains(point)) {
            ToggleRow(row);
            return true;
        }
        if (isDouble && row >= 0 && GetRow(row).CanOpen() &&
            !GetCheckBoxRect(row, GetRowRect(row)).Contains(point)) {
            ToggleRow(row);
            return true;
        }
    }
    const int32_t row = GetFocusedRow();
    if (event.type == MEventType::Character && (event.character == '+' || event.character == '-') &&
        row >= 0 && !IsTyping()) {
        if (GetRow(row).CanOpen()) SetItemOpen(GetRow(row), event.character == '+');
        return true;
    }
    return MListBoxBase::ProcessEvent(event);
}

void MTreeControlBase::WriteHelpInfo(MXMLItem& item) {
    constexpr const char* Entries[] = {
        "<control>Enter</control> opens/closes selected item.",
        ("<control>Arrow keys</control>, <control>page-up</control> and <control>page-down</control> move the "
         "selection."),
        "<control>Home</control> key selects the first item, <control>End</control> selects the last one.",
        "<control>Space</control> checks or unchecks selected item(s)."};
    std::vector<const char*> entries = GetSelectionUsage();
    entries.insert(entries.end(), std::begin(Entries), std::end(Entries));
    MWriteUsage(item, "", entries);
    MControl::WriteHelpInfo(item);
}
