#include "ui/layout/MGridPlan.h"

#include "ui/control/MControl.h"
#include "ui/geometry/MLength.h"
#include "ui/layout/MLayoutGrid.h"

#include <algorithm>

namespace {

/// Of columns that nothing else gives one.
constexpr int32_t DefaultWeight = 100;

bool IsPlastic(const MGridPlan::Cell& cell) {
    return cell.control->Is(MControlFlag::Plastic);
}

int32_t GetBorders(const MGridPlan::Cell& cell, MAxis axis) {
    return MClampLength(int64_t{2} * SizeComputer::GetBorder(*cell.control, axis));
}

}  // namespace

MGridPlan::MGridPlan(const MLayoutGrid& grid, const SizeComputer& computer, MPoint gaps)
    : grid(grid),
      computer(computer),
      columns(grid.GetColumnCount(), gaps.x),
      rows(grid.GetRowCount(), gaps.y),
      autoHeight(static_cast<size_t>(grid.GetRowCount())) {
    FindCells();
    MeasureRows();
}

void MGridPlan::FindCells() {
    static_assert(MLayoutGrid::MaximalColumns == 32);
    std::vector<uint32_t> taken(static_cast<size_t>(rows.GetCount()));  // a bit for each column of a row
    for (int32_t row = 0; row < rows.GetCount(); ++row)
        for (int32_t column = 0; column < columns.GetCount(); ++column)
            if (MControl* const control = grid.GetCell(row, column);
                control && control->Is(MControlFlag::Visible)) {
                cells.push_back({control, row, column});
                taken[static_cast<size_t>(row)] |= uint32_t{1} << column;
            }

    for (Cell& cell : cells) {
        uint32_t mask = uint32_t{1} << cell.column;
        const int32_t end = std::min<int32_t>(cell.column + cell.control->spanX, columns.GetCount());
        uint32_t& own = taken[static_cast<size_t>(cell.row)];
        for (int32_t column = cell.column + 1; column < end && !(own >> column & 1); ++column) {
            mask |= uint32_t{1} << column;
            ++cell.columnCount;
        }
        own |= mask;
        const int32_t last = std::min<int32_t>(cell.row + cell.control->spanY, rows.GetCount());
        for (int32_t row = cell.row + 1; row < last && !(taken[static_cast<size_t>(row)] & mask); ++row) {
            taken[static_cast<size_t>(row)] |= mask;
            ++cell.rowCount;
        }
    }
}

void MGridPlan::MeasureRows() {
    std::vector<bool> isFixed(autoHeight.size());
    for (const Cell& cell : cells) {
        MGridTracks::Track& row = rows[cell.row];
        row.isUsed = true;
        if (IsPlastic(cell)) {
            autoHeight[static_cast<size_t>(cell.row)] = true;
            continue;
        }
        isFixed[static_cast<size_t>(cell.row)] = true;
        if (cell.rowCount > 1) continue;
        row.minimal = std::max(row.minimal, computer.GetY(*cell.control));
        if (cell.control->layoutRatio.y <= 0 || cell.control->Is(MControlFlag::Collapsed)) continue;
        hasRowWeight = true;
        if (grid.verticalFill) row.weight = std::max(row.weight, cell.control->layoutRatio.y);
    }
    for (size_t row = 0; row < autoHeight.size(); ++row)
        if (isFixed[row]) autoHeight[row] = false;
    for (const Cell& cell : cells) {
        if (IsAuto(cell)) continue;
        if (cell.rowCount > 1 && !IsPlastic(cell))
            rows.RaiseSpan(cell.row, cell.rowCount, computer.GetY(*cell.control));
        if (IsPlastic(cell)) rows.RaiseSpan(cell.row, cell.rowCount, GetPlasticHeight(cell, MaximalLength));
    }
    for (int32_t row = 0; row < rows.GetCount(); ++row) rows[row].length = rows[row].minimal;
}

void MGridPlan::MeasureColumns() {
    MeasureCellsOfColumns();
    WeighColumnsOfNothing();
    SpreadSpans();
    AlignColumns();
}

void MGridPlan::MeasureCellsOfColumns() {
    for (const Cell& cell : cells) {
        if (IsAuto(cell) || cell.columnCount > 1) continue;
        MGridTracks::Track& column = columns[cell.column];
        column.minimal =
            std::max(column.minimal, IsPlastic(cell) ? GetPlasticWidth(cell) : computer.GetX(*cell.control));
        if (!IsPlastic(cell)) column.weight = std::max(column.weight, cell.control->layoutRatio.x);
    }
}

void MGridPlan::WeighColumnsOfNothing() {
    // Lines of text that are alone in a column are no narrower than they want to be.
    std::vector<bool> isEmpty(static_cast<size_t>(columns.GetCount()));
    std::vector<bool> isSpanned(isEmpty.size());
    for (int32_t column = 0; column < columns.GetCount(); ++column)
        isEmpty[static_cast<size_t>(column)] = columns[column].minimal == 0 && columns[column].weight == 0;
    for (const Cell& cell : cells) {
        if (cell.columnCount > 1) isSpanned[static_cast<size_t>(cell.column)] = true;
        if (cell.columnCount > 1 || !IsAuto(cell) || !isEmpty[static_cast<size_t>(cell.column)]) continue;
        MGridTracks::Track& column = columns[cell.column];
        column.minimal = std::max(column.minimal, computer.GetX(*cell.control));
        column.weight = std::max(column.weight, cell.control->layoutRatio.x);
    }

    for (int32_t column = 0; column < columns.GetCount(); ++column) {
        MGridTracks::Track& track = columns[column];
        track.isUsed = true;
        if (track.minimal != 0 || track.weight != 0) continue;
        const bool isBehindFixed =
            column > 0 && columns[column - 1].weight == 0 && columns[column - 1].minimal > 0;
        if (isSpanned[static_cast<size_t>(column)] || isBehindFixed) track.weight = DefaultWeight;
    }
}

void MGridPlan::SpreadSpans() {
    for (const Cell& cell : cells) {
        if (cell.columnCount == 1) continue;
        int32_t needed;
        if (!IsPlastic(cell)) {
            needed = computer.GetX(*cell.control);
        } else if (!IsAuto(cell)) {
            needed = GetPlasticWidth(cell);
        } else {
            // What wraps may be as narrow as the columns are without it, if they are of any width.
            int64_t width = 0;
            for (int32_t column = 0; column < cell.columnCount; ++column)
                width += columns[cell.column + column].minimal;
            needed = width == 0 || cell.control->layoutRatio.x <= 0 ? computer.GetX(*cell.control) : 0;
        }
        columns.RaiseSpan(cell.column, cell.columnCount, needed);
    }
}

void MGridPlan::AlignColumns() {
    const int32_t count = grid.columnSpanCount;
    if (count <= 0 || count >= columns.GetCount()) return;
    for (int32_t first = 0; first < count; ++first) {
        int32_t width = 0;
        bool hasWeight = false;
        bool hasFixed = false;
        for (int32_t column = first; column < columns.GetCount(); column += count) {
            width = std::max(width, columns[column].minimal);
            (columns[column].weight > 0 ? hasWeight : hasFixed) = true;
        }
        if (!hasWeight || !hasFixed) continue;
        for (int32_t column = first; column < columns.GetCount(); column += count) {
            columns[column].minimal = width;
            columns[column].weight = 0;
        }
    }
}

void MGridPlan::FitColumns(int32_t width) {
    columns.Share(width);
    MeasureAutoRows();
}

void MGridPlan::MeasureAutoRows() {
    const auto getHeight = [&](const Cell& cell) {
        return GetPlasticHeight(cell, columns.GetSpanLength(cell.column, cell.columnCount));
    };
    for (const Cell& cell : cells)
        if (IsAuto(cell) && cell.rowCount == 1) {
            MGridTracks::Track& row = rows[cell.row];
            row.minimal = std::max(row.minimal, getHeight(cell));
        }
    for (const Cell& cell : cells)
        if (IsAuto(cell) && cell.rowCount > 1 && IsPlastic(cell))
            rows.RaiseSpan(cell.row, cell.rowCount, getHeight(cell));
}

int32_t MGridPlan::GetPlasticHeight(const Cell& cell, int32_t width) {
    const int32_t inside = MClampLength(int64_t{width} - GetBorders(cell, MAxis::X));
    return MClampLength(int64_t{cell.control->GetPlasticSize(1, inside)} + GetBorders(cell, MAxis::Y));
}

int32_t MGridPlan::GetPlasticWidth(const Cell& cell) const {
    const int64_t height = rows.GetSpanLength(cell.row, cell.rowCount) - GetBorders(cell, MAxis::Y);
    return MClampLength(int64_t{cell.control->GetPlasticSize(0, MClampLength(height))} +
                        GetBorders(cell, MAxis::X));
}
