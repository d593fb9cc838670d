#pragma once

#include "ui/geometry/MPoint.h"
#include "ui/geometry/MRect.h"
#include "ui/layout/MGridTracks.h"

#include <cstdint>
#include <vector>

class MControl;
class MLayoutGrid;
class SizeComputer;

/// How wide the columns of a grid are, how high its rows, and which cells each visible control covers: made
/// for one measuring or arranging, by steps in this order:
///
///     MGridPlan plan(grid, computer, gaps);  // cells, and the least heights of rows
///     plan.MeasureColumns();
///     plan.FitColumns(width);                // and the heights that follow from widths
///     plan.FitRows(height);
///
/// Rows share what is left of the height in the end. If widths followed from heights that are shared, a
/// higher grid could need more width than a lower one, and the minimal size would not do.
class MGridPlan final {
public:
    /// The cells that a control covers: as many as its spans say, as long as they lie in the grid and no
    /// other control is there.
    struct Cell {
        MControl* control;
        int32_t row;
        int32_t column;
        int32_t rowCount = 1;
        int32_t columnCount = 1;
    };

    /// `gaps`: between columns (x) and rows (y). The computer outlives the plan.
    MGridPlan(const MLayoutGrid& grid, const SizeComputer& computer, MPoint gaps);

    void MeasureColumns();
    [[nodiscard]] int32_t GetNeededWidth() const { return columns.GetNeeded(); }
    void FitColumns(int32_t width);
    [[nodiscard]] int32_t GetNeededHeight() const { return rows.GetNeeded(); }
    void FitRows(int32_t height) { rows.Share(height); }

    [[nodiscard]] bool HasColumnWeight() const { return columns.HasWeight(); }
    [[nodiscard]] bool HasRowWeight() const { return hasRowWeight; }
    [[nodiscard]] const std::vector<Cell>& GetCells() const { return cells; }
    [[nodiscard]] const MGridTracks& GetColumns() const { return columns; }
    [[nodiscard]] const MGridTracks& GetRows() const { return rows; }

private:
    void FindCells();
    void MeasureRows();
    void MeasureCellsOfColumns();
    void WeighColumnsOfNothing();
    void SpreadSpans();
    void AlignColumns();
    void MeasureAutoRows();
    [[nodiscard]] bool IsAuto(const Cell& cell) const { return autoHeight[static_cast<size_t>(cell.row)]; }
    /// The height that a plastic control needs in cells of a width, with its border.
    [[nodiscard]] static int32_t GetPlasticHeight(const Cell& cell, int32_t width);
    /// The width that it needs at the height of its rows, with its border.
    [[nodiscard]] int32_t GetPlasticWidth(const Cell& cell) const;

    const MLayoutGrid& grid;
    const SizeComputer& computer;
    std::vector<Cell> cells;
    MGridTracks columns;
    MGridTracks rows;
    std::vector<bool> autoHeight;  ///< by row: nothing but plastic controls, whose heights follow from widths
    bool hasRowWeight = false;
};
