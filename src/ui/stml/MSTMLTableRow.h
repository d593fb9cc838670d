#pragma once

#include "ui/stml/MSTMLTableCell.h"

#include <memory>
#include <vector>

/// Cells side by side; tables are rows below each other. Cells with a width of their own get that. What is
/// left of the row is dealt out by shares in percent, of which cells without any width divide what is missing
/// to 100. No cell is narrower than its widest word, so a row may be wider than its room.
class MSTMLTableRow final : public MSTMLItem {
public:
    /// Takes "height", "padding", "cellspaces", "border", "borderalpha" and those of the ground.
    explicit MSTMLTableRow(const MSTMLAttributes& attributes);
    MSTMLTableRow(const MSTMLTableRow& other);
    MSTMLTableRow& operator=(const MSTMLTableRow&) = delete;

    MSTMLTableCell& Add(std::unique_ptr<MSTMLTableCell> cell);

    [[nodiscard]] MSTMLTableRow* Clone() const override { return new MSTMLTableRow(*this); }
    int32_t ComputeHeight(MSTMLContext& context, int32_t width, int32_t maxHeight) override;
    int32_t ComputeSize(MSTMLContext& context, int32_t width, int32_t& outWidth) override;
    [[nodiscard]] int32_t GetMinimalWidth(MSTMLContext& context) override;
    [[nodiscard]] int32_t GetMaximalWidth(MSTMLContext& context) override;
    void Paint(MSTMLContext& context, const MRect& rect, bool isInverted) override;
    [[nodiscard]] bool HasContent() const override;

    MSTMLFill fill;

private:
    /// The width of all that is no cell.
    [[nodiscard]] int32_t GetSpaces(MDrawer& drawer) const;
    /// The share of each cell in percent, -1 for one with a width of its own.
    [[nodiscard]] std::vector<int32_t> GetShares() const;
    void ComputeColumns(MSTMLContext& context, int32_t width);
    template <class Measure>
    [[nodiscard]] int32_t GetWidthFor(MSTMLContext& context, Measure measure);

    std::vector<std::unique_ptr<MSTMLTableCell>> cells;
    MSTMLLength rowHeight;
    MSTMLFrame frame;
    int32_t cellSpaces;
    uint8_t borderAlpha;
    std::vector<int32_t> columns;
};
