#include "ui/widgets/lists/MListBoxBase.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MXMLItem.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <algorithm>
#include <utility>

namespace {

/// As many sizes as a document may give.
constexpr int32_t MaximumSizes = 1000;

std::vector<int32_t> LoadSizes(MXMLItem& item, const char* format) {
    std::vector<int32_t> sizes;
    for (int32_t i = 0; i < MaximumSizes && item.HasAttribute(MFormat(format, i)); ++i)
        sizes.push_back(std::clamp(item.GetInt32Attribute(MFormat(format, i)), 0, 10000));
    return sizes;
}

}  // namespace

MListBoxBase::MListBoxBase(MControl* parent, const MString& name) : MRowView(parent, name) {}

void MListBoxBase::LoadFromXml(MXMLItem& item) {
    lineCount = std::clamp(item.GetInt32Attribute("rows", lineCount), 0, MaximumSizes);
    lineHeights = LoadSizes(item, "row{0}");
    columnWidths = LoadSizes(item, "columns{0}");
    SetColumnCount(std::clamp(item.GetInt32Attribute("columns", 1), 1, MaximumSizes));
    SetCheckBoxes(item.GetInt32Attribute("checkboxes", hasCheckBoxes) != 0);
    SetMultiSelect(item.GetInt32Attribute("multiselect", isMultiSelect) != 0);
    SetReorderable(item.GetInt32Attribute("reorder", canReorder) != 0);
    if (item.GetInt32Attribute("background", 1) == 0) SetControlType(MControlType::NoBackground);
    MRowView::LoadFromXml(item);
}

void MListBoxBase::SetMultiSelect(bool isMulti) {
    isMultiSelect = isMulti;
    if (!isMulti && selectedItems.size() > 1) SelectRow(GetSelectedRow());
}

void MListBoxBase::SetCheckBoxes(bool hasThem) {
    if (std::exchange(hasCheckBoxes, hasThem) == hasThem) return;
    for (int32_t row = 0; row < GetRowCount(); ++row) GetRow(row).hasCheckBox = hasThem;
    UpdateRows();
}

MList<int32_t> MListBoxBase::GetSelectedRows() {
    MList<int32_t> rows;
    for (int32_t row = 0; !selectedItems.empty() && row < GetRowCount(); ++row)
        if (GetRow(row).isSelected) rows.Add(row);
    return rows;
}

int32_t MListBoxBase::GetSelectedRow() {
    if (selectedItems.empty()) return -1;
    const int32_t count = GetRowCount();
    const int32_t focused = GetFocusedRow();
    if (selectedItems.size() == 1 && focused >= 0 && GetRow(focused).isSelected) return focused;
    // An item that came into a closed branch of a tree is no row.
    for (int32_t row = 0; row < count; ++row)
        if (GetRow(row).isSelected) return row;
    return -1;
}

void MListBoxBase::StartAtSelected() {
    const int32_t row = GetSelectedRow();
    if (row < 0) return;
    anchorRow = row;
    SetFocusedRow(row);
    ScrollToRow(row);
}

void MListBoxBase::OnItemAdded(MListBoxItemBaseWithFeatures& item) {
    if (hasCheckBoxes && !item.IsSeparator()) item.hasCheckBox = true;
    if (!std::exchange(item.isSelected, false)) return;
    if (!isMultiSelect) ClearSelection();
    item.isSelected = true;
    selectedItems.push_back(&item);
}

void MListBoxBase::OnItemRemoved(MListBoxItemBaseWithFeatures& item) {
    if (item.isSelected) std::erase(selectedItems, &item);
}

void MListBoxBase::ClearSelection() {
    const int32_t focused = GetFocusedRow();
    const bool isFocusedAlone = selectedItems.size() == 1 && focused >= 0 && GetRow(focused).isSelected;
    if (isFocusedAlone)
        UpdateRow(focused);
    else if (!selectedItems.empty())
        Invalidate();
    for (MListBoxItemBaseWithFeatures* item : selectedItems) item->isSelected = false;
    selectedItems.clear();
}

void MListBoxBase::SetRowSelected(int32_t row, bool isSelected) {
    MListBoxItemBaseWithFeatures& item = GetRow(row);
    if (item.isSelected == isSelected || (isSelected && !item.IsSelectable())) return;
    if (isSelected && !isMultiSelect) ClearSelection();
    item.isSelected = isSelected;
    if (isSelected)
        selectedItems.push_back(&item);
    else
        std::erase(selectedItems, &item);
    UpdateRow(row);
}

void MListBoxBase::SelectRow(int32_t row) {
    if (row >= GetRowCount()) row = -1;
    ClearSelection();
    anchorRow = row;
    SetFocusedRow(row);
    if (row < 0) return;
    SetRowSelected(row, true);
    ScrollToRow(row);
}

void MListBoxBase::SelectAll() {
    ClearSelection();
    for (int32_t row = 0; isMultiSelect && row < GetRowCount(); ++row) {
        MListBoxItemBaseWithFeatures& item = GetRow(row);
        item.isSelected = item.IsSelectable();
        if (item.isSelected) selectedItems.push_back(&item);
    }
    Invalidate();
}

void MListBoxBase::SelectRange(int32_t row) {
    ClearSelection();
    if (anchorRow < 0 || anchorRow >= GetRowCount()) anchorRow = row;
    for (int32_t i = std::min(anchorRow, row); i <= std::max(anchorRow, row); ++i) {
        MListBoxItemBaseWithFeatures& item = GetRow(i);
        item.isSelected = item.IsSelectable();
        if (item.isSelected) selectedItems.push_back(&item);
    }
    Invalidate();
    SetFocusedRow(row);
}

uint8_t MListBoxBase::GetRowState(int32_t row) {
    uint8_t state = MRowView::GetRowState(row);
    if (GetRow(row).isSelected) state |= MDrawClicked;
    return state;
}

void MListBoxBase::ToggleCheck(int32_t row) {
    MListBoxItemBaseWithFeatures& item = GetRow(row);
    item.check = item.check == 1 ? 0 : 1;
    UpdateRow(row);
    OnChecked(row);
}

void MListBoxBase::ToggleSelectedChecks(int32_t row) {
    const uint8_t check = GetRow(row).check == 1 ? 0 : 1;
    const MControlRef self(this);
    for (int32_t other = 0; self && other < GetRowCount(); ++other) {
        const MListBoxItemBaseWithFeatures& item = GetRow(other);
        if ((item.isSelected || other == row) && item.hasCheckBox && item.check != check) ToggleCheck(other);
    }
}

void MListBoxBase::ApplyOrder(const std::vector<int32_t>& order) {
    const auto focused = std::ranges::find(order, GetFocusedRow());
    Reorder(order);
    SetFocusedRow(focused == order.end() ? -1 : static_cast<int32_t>(focused - order.begin()));
    anchorRow = GetFocusedRow();
    UpdateRows();
}

void MListBoxBase::SortRows() {
    std::vector<MString> texts;
    std::vector<int32_t> order;
    for (int32_t row = 0; row < GetRowCount(); ++row) {
        texts.push_back(GetRow(row).GetPlainText());
        order.push_back(row);
    }
    std::ranges::stable_sort(order, [&](int32_t one, int32_t other) {
        return texts[static_cast<size_t>(one)].CompareNoCase(texts[static_cast<size_t>(other)]) < 0;
    });
    ApplyOrder(order);
}

void MListBoxBase::MoveSelected(int32_t gap) {
    std::vector<int32_t> order;
    const auto add = [&](int32_t from, int32_t to, bool isSelected) {
        for (int32_t row = from; row < to; ++row)
            if (GetRow(row).isSelected == isSelected) order.push_back(row);
    };
    const int32_t count = GetRowCount();
    gap = std::clamp(gap, 0, count);
    add(0, gap, false);
    const auto first = static_cast<int32_t>(order.size());
    add(0, count, true);
    add(gap, count, false);
    if (std::ranges::is_sorted(order)) return;
    if (GetFocusedRow() < 0) SetFocusedRow(order[static_cast<size_t>(first)]);
    ApplyOrder(order);
    const MControlRef self(this);
    OnChange(Change::Committed).Fire({this});
    if (self) ScrollToRow(GetFocusedRow());
}

std::vector<const char*> MListBoxBase::GetSelectionUsage() const {
    std::vector<const char*> entries{
        "<control>Left mouse button</control> selects an item. If you click on a check-box, the item will be "
        "checked/unchecked."};
    if (isMultiSelect) {
        entries.push_back("<control>Click with Ctrl</control> switches items selection state.");
        entries.push_back("<control>Click with Shift</control> selects all items from the clicked one to the "
                          "selected one.");
    }
    return entries;
}

void MListBoxBase::WriteHelpInfo(MXMLItem& item) {
    std::vector<const char*> entries = GetSelectionUsage();
    entries.push_back(
        "<control>Mouse-wheel</control>, <control>up</control> and <control>down</control> arrow "
        "keys, <control>page-up</control> and <control>page-down</control> move the selection.");
    entries.push_back(
        "<control>Home</control> key selects the first item, <control>End</control> selects the "
        "last one.");
    entries.push_back("<control>Space</control> checks or unchecks selected item(s).");
    if (canReorder)
        entries.push_back("<control>Left mouse button drag</control> changes the order of items by moving "
                          "selected item(s).");
    MWriteUsage(item, "", entries);
    MRowView::WriteHelpInfo(item);
}
