#pragma once

#include "ui/control/MLayout.h"

#include <cstdint>

/// Leaves the margins of the rectangle free, so many pixels of scale 100 on each side. It takes no controls.
class MLayoutOccupyBorder final : public MLayout {
public:
    using MLayout::MLayout;

    /// "x1", "y1", "x2"; the format has no attribute for the bottom, which is as wide as the top.
    void LoadFromXml(MXMLItem& item) override;
    /// Both raise "Service "{0}" is not implemented." (1).
    void Attach(MControl& control) override;
    void Add(MControl& control) override;
    /// At least a pixel is left in each direction.
    [[nodiscard]] MRect Arrange(MControl& owner, const MRect& rect) override;
    void Measure(MControl& owner, MLayoutNeeds& needs, const SizeComputer& computer) override;

    int32_t x1 = 0;
    int32_t y1 = 0;
    int32_t x2 = 0;
    int32_t y2 = 0;

private:
    struct Margins {
        int32_t left, top, right, bottom;
    };
    /// In pixels.
    [[nodiscard]] Margins GetMargins() const;
};
