#include "ui/layout/MLayoutGrid.h"

#include "foundation/xml/MXMLItem.h"
#include "ui/control/MControl.h"
#include "ui/geometry/MLength.h"
#include "ui/layout/MGridPlan.h"

#include <algorithm>
#include <vector>

MLayoutGrid::MLayoutGrid(MControl& owner, int32_t columnCount)
    : MLayout(owner), columns(std::clamp(columnCount, 1, MaximalColumns)) {}

void MLayoutGrid::LoadFromXml(MXMLItem& item) {
    MLayout::LoadFromXml(item);
    SetColumnCount(item.GetInt32Attribute("columns", columns));
    SetRowCount(std::min(item.GetInt32Attribute("rows", rows.GetCount()), MaximalRows));
    verticalFill = item.GetInt32Attribute("verticalfill", verticalFill ? 1 : 0) != 0;
    columnSpanCount = item.GetInt32Attribute("columnspancount", columnSpanCount);
}

void MLayoutGrid::LoadControlParameters(MControl& control, MXMLItem& item) {
    SetSpanX(control, item.GetInt32Attribute("hspan", control.spanX), true);
    SetSpanY(control, item.GetInt32Attribute("vspan", control.spanY));
}

void MLayoutGrid::Attach(MControl& control) {
    if (control.parentLayout) control.parentLayout->Detach(control);
    const auto isTaken = [&] {
        return currentRow < spannedRows[static_cast<size_t>(currentColumn)] ||
               (currentRow < rows.GetCount() && GetCell(currentRow, currentColumn));
    };
    while (isTaken()) GoOn(1);
    Put(control, currentRow, currentColumn);
    GoOn(1);
}

void MLayoutGrid::AttachAt(MControl& control, int32_t row, int32_t column) {
    if (row < 0 || column < 0 || column >= columns) return;
    if (control.parentLayout) control.parentLayout->Detach(control);
    Put(control, row, column);
}

void MLayoutGrid::Put(MControl& control, int32_t row, int32_t column) {
    MLayout::Attach(control);
    while (rows.GetCount() <= row) rows.Add(new Row{});
    MControl*& cell = (*rows[row])[static_cast<size_t>(column)];
    // The row stays, since it does not become empty.
    if (cell) MLayout::Detach(*cell);
    cell = &control;
    control.spanX = 1;
    control.spanY = 1;
}

void MLayoutGrid::GoOn(int32_t count) {
    currentColumn += count;
    if (currentColumn < columns) return;
    currentColumn = 0;
    ++currentRow;
}

void MLayoutGrid::Detach(MControl& control) {
    if (control.parentLayout != this) return;
    const Place place = FindPlace(control);
    MLayout::Detach(control);
    if (place.row < 0) return;
    Row& row = *rows[place.row];
    row[static_cast<size_t>(place.column)] = nullptr;
    if (std::any_of(row.begin(), row.end(), [](const MControl* each) { return each != nullptr; })) return;
    rows.Remove(place.row);
    spannedRows.fill(0);
    if (place.row == currentRow) currentColumn = 0;
    if (place.row < currentRow) --currentRow;
}

void MLayoutGrid::SetSpanX(MControl& control, int32_t span, bool reserve) {
    control.spanX = static_cast<uint16_t>(std::clamp(span, 1, MaximalColumns));
    const Place place = control.parentLayout == this ? FindPlace(control) : Place();
    const bool isLast = place.row == currentRow && place.column == currentColumn - 1;
    if (reserve && isLast) GoOn(control.spanX - 1);
}

void MLayoutGrid::SetSpanY(MControl& control, int32_t span) {
    control.spanY = static_cast<uint16_t>(std::clamp(span, 1, MaximalRows));
    const Place place = control.parentLayout == this ? FindPlace(control) : Place();
    if (place.row < 0) return;
    const int32_t end = std::min(place.column + control.spanX, columns);
    for (int32_t column = place.column; column < end; ++column) {
        int32_t& spanned = spannedRows[static_cast<size_t>(column)];
        spanned = std::max(spanned, place.row + control.spanY);
    }
}

void MLayoutGrid::SetColumnCount(int32_t count) {
    columns = std::clamp(count, 1, MaximalColumns);
    MList<MControl, MListPointers> beyond;
    for (const Row* row : rows)
        for (size_t column = static_cast<size_t>(columns); column < row->size(); ++column)
            if ((*row)[column]) beyond.Add((*row)[column]);
    for (MControl* control : beyond) Detach(*control);
    if (currentColumn >= columns) GoOn(0);
}

void MLayoutGrid::SetRowCount(int32_t count) {
    while (rows.GetCount() < count) rows.Add(new Row{});
    while (rows.GetCount() > std::max(count, 0)) {
        const int32_t last = rows.GetCount() - 1;
        for (MControl* control : *rows[last])
            if (control) MLayout::Detach(*control);
        rows.Remove(last);
    }
    if (currentRow <= rows.GetCount()) return;
    currentRow = rows.GetCount();
    currentColumn = 0;
}

MLayoutGrid::Place MLayoutGrid::FindPlace(const MControl& control) const {
    for (int32_t row = rows.GetCount() - 1; row >= 0; --row)
        for (int32_t column = 0; column < MaximalColumns; ++column)
            if (GetCell(row, column) == &control) return {row, column};
    return {};
}

MRect MLayoutGrid::Arrange(MControl& arranged, const MRect& rect) {
    const MinimalSizeComputer computer;
    MGridPlan plan(*this, computer, GetGaps());
    plan.MeasureColumns();
    plan.FitColumns(rect.GetWidth());
    plan.FitRows(verticalFill ? rect.GetHeight() : plan.GetNeededHeight());

    const std::vector<int64_t> x = plan.GetColumns().GetPlaces();
    const std::vector<int64_t> y = plan.GetRows().GetPlaces();
    for (const MGridPlan::Cell& cell : plan.GetCells()) {
        const int32_t left = MClampPlace(rect.left + x[static_cast<size_t>(cell.column)]);
        const int32_t top = MClampPlace(rect.top + y[static_cast<size_t>(cell.row)]);
        arranged.PlaceControl(*cell.control,
                              MRect::FromSize(left, top,
                                              plan.GetColumns().GetSpanLength(cell.column, cell.columnCount),
                                              plan.GetRows().GetSpanLength(cell.row, cell.rowCount)));
    }
    MRect rest = rect;
    rest.top =
        static_cast<int32_t>(std::min<int64_t>(rect.top + y.back(), std::max(rect.top, rect.bottom + 1)));
    return rest;
}

void MLayoutGrid::Measure(MControl&, MLayoutNeeds& needs, const SizeComputer& computer) {
    MGridPlan plan(*this, computer, GetGaps());
    plan.MeasureColumns();
    const int32_t width = needs.GetRoom(plan.GetNeededWidth());
    plan.FitColumns(width);
    const int32_t height = plan.GetNeededHeight();
    needs.Fill(MAxis::X, width);
    if (height > 0) needs.Take(MAxis::Y, height, GetSpace());
}

MFlexibility MLayoutGrid::GetFlexibility() {
    const MinimalSizeComputer computer;
    MGridPlan plan(*this, computer, GetGaps());
    plan.MeasureColumns();
    return (plan.HasColumnWeight() ? MFlexibleX : MFlexibleNone) |
           (verticalFill || plan.HasRowWeight() ? MFlexibleY : MFlexibleNone);
}
