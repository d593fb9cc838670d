#pragma once

#include "ui/control/MLayout.h"

#include <array>
#include <cstddef>
#include <cstdint>

/// Controls in the cells of a table. They fill it row by row, in the order in which they come.
///
/// A column is as wide as its widest control; if one of them stretches, the column shares what is left of the
/// width by the greatest ratio among them. A row is as high as its highest control, and shares what is left
/// of the height only with `verticalFill`. A row of nothing but `Plastic` controls gets the height that
/// follows from the widths of their columns, and any other such control the width that follows from the least
/// height of its row; columns of nothing else are as wide as those controls want to be.
///
/// A control may span columns and rows, as far as they are free; those grow until it fits. A column that
/// nothing gives a width stretches if a spanning control begins in it, or behind a column of fixed width.
/// What is below the last row is left to the next layout: with `verticalFill` that is nothing.
class MLayoutGrid final : public MLayout {
public:
    static constexpr int32_t MaximalColumns = 32;
    /// That can be asked for in advance, or spanned by a control; controls make as many as they need.
    static constexpr int32_t MaximalRows = 1000;

    /// `columnCount` is cut to 1 to `MaximalColumns`.
    explicit MLayoutGrid(MControl& owner, int32_t columnCount = 1);

    /// "columns", "rows", "verticalfill", "columnspancount".
    void LoadFromXml(MXMLItem& item) override;
    /// "hspan" columns, which no other control takes, and "vspan" rows.
    void LoadControlParameters(MControl& control, MXMLItem& item) override;
    /// Into the next cell that is free and that no control reaches down to from above.
    void Attach(MControl& control) override;
    /// Into a cell of the grid, which loses the control that it had; other ones are ignored. Rows down to it
    /// are made.
    void AttachAt(MControl& control, int32_t row, int32_t column);
    /// A row that becomes empty is removed.
    void Detach(MControl& control) override;
    void SetSpanX(MControl& control, int32_t span, bool reserve) override;
    void SetSpanY(MControl& control, int32_t span);
    [[nodiscard]] MRect Arrange(MControl& owner, const MRect& rect) override;
    void Measure(MControl& owner, MLayoutNeeds& needs, const SizeComputer& computer) override;
    [[nodiscard]] MFlexibility GetFlexibility() override;

    [[nodiscard]] int32_t GetColumnCount() const { return columns; }
    [[nodiscard]] int32_t GetRowCount() const { return rows.GetCount(); }
    /// Null for an empty cell.
    [[nodiscard]] MControl* GetCell(int32_t row, int32_t column) const {
        return (*rows[row])[static_cast<size_t>(column)];
    }
    /// What lies beyond is released.
    void SetColumnCount(int32_t count);
    void SetRowCount(int32_t count);

    bool verticalFill = false;
    /// Columns so many apart are of one width if some of them stretch and others do not; 0 for none.
    int32_t columnSpanCount = 0;

private:
    using Row = std::array<MControl*, MaximalColumns>;
    struct Place {
        int32_t row = -1;
        int32_t column = -1;
    };

    /// Of a control that is held here.
    [[nodiscard]] Place FindPlace(const MControl& control) const;
    void Put(MControl& control, int32_t row, int32_t column);
    void GoOn(int32_t count);
    [[nodiscard]] MPoint GetGaps() const { return {GetGridSpace(), GetSpace()}; }

    int32_t columns;
    int32_t currentRow = 0;  ///< where the next control goes
    int32_t currentColumn = 0;
    MList<Row, MListOwning> rows;
    /// By column: the first row that no control above spans.
    std::array<int32_t, MaximalColumns> spannedRows{};
};
