#pragma once

#include "ui/stml/MSTMLContainer.h"
#include "ui/stml/MSTMLFrame.h"
#include "ui/stml/MSTMLLength.h"

class MSTMLAttributes;

/// A cell of a row. Its widths and heights are those with padding and border.
class MSTMLTableCell final : public MSTMLContainer {
public:
    enum class Alignment : uint8_t { Top, Center, Bottom };

    MSTMLTableCell() = default;
    /// Takes "width", "valign", "padding", "autosize", "border", "borderalpha" and those of the ground.
    explicit MSTMLTableCell(const MSTMLAttributes& attributes);

    /// Whether the cell has a width of its own, in pixels or by its content, and no share of the row.
    [[nodiscard]] bool IsFixed() const { return autosize || !width.IsPercent(); }
    [[nodiscard]] int32_t GetFixedWidth(MSTMLContext& context);
    /// In percent; 0 if the cell takes what the others leave.
    [[nodiscard]] int32_t GetShare() const { return width.value; }

    [[nodiscard]] MSTMLTableCell* Clone() const override { return new MSTMLTableCell(*this); }
    int32_t ComputeHeight(MSTMLContext& context, int32_t cellWidth, int32_t maxHeight) override;
    int32_t ComputeSize(MSTMLContext& context, int32_t cellWidth, int32_t& outWidth) override;
    [[nodiscard]] int32_t GetMinimalWidth(MSTMLContext& context) override;
    [[nodiscard]] int32_t GetMaximalWidth(MSTMLContext& context) override;
    void Paint(MSTMLContext& context, const MRect& rect, bool isInverted) override;

    MSTMLLength width{MSTMLLength::Kind::Percent, 0};
    Alignment valign = Alignment::Top;
    bool autosize = false;

private:
    MSTMLFrame frame{2, 0};
    uint8_t borderAlpha = 255;
    int32_t contentHeight = 0;
};
