#pragma once

#include "ui/layout/MLayoutClient.h"

#include <array>
#include <cstdint>

/// Where a control stands in a corner layout.
enum class MCornerTarget : int32_t {
    TopLeft,
    TopRight,
    BottomLeft,
    BottomRight,
    Left,
    Top,
    Right,
    Bottom,
    Count
};

/// A strip along each side of the rectangle and a control in each corner between them, as scroll bars and
/// rulers around a view. The columns at the left and the right are as wide as the widest of their strip and
/// corners, the rows at the top and the bottom as high.
class MLayoutCorner final : public MLayout {
public:
    explicit MLayoutCorner(MControl& owner)
        : MLayout(owner), left(owner), right(owner), top(owner), bottom(owner) {}

    /// "target": a number of `MCornerTarget`. Raises "Invalid target for corner layout." (0).
    void LoadControlParameters(MControl& control, MXMLItem& item) override;
    void Detach(MControl& control) override;
    /// Takes a control that has no place until the form with a target is called.
    using MLayout::Add;
    /// A corner loses the control that it had. Raises as `LoadControlParameters` does.
    void Add(MControl& control, MCornerTarget target);
    [[nodiscard]] MRect Arrange(MControl& owner, const MRect& rect) override;
    void Measure(MControl& owner, MLayoutNeeds& needs, const SizeComputer& computer) override;
    /// The strips' along their sides.
    [[nodiscard]] MFlexibility GetFlexibility() override;

protected:
    void SetOwner(MControl& newOwner) override;

private:
    class Column final : public MLayoutVertical {
    public:
        explicit Column(MControl& owner) : MLayoutVertical(owner, Part::OfLayout) {}
        using MLayoutVertical::SetOwner;
    };
    class Row final : public MLayoutHorizontal {
    public:
        explicit Row(MControl& owner) : MLayoutHorizontal(owner, Part::OfLayout) {}
        using MLayoutHorizontal::SetOwner;
    };

    /// The side of the rectangle at the low end of an axis, or at the high one.
    enum class End { Low, High };
    static constexpr std::array Ends{End::Low, End::High};

    /// How wide the columns (x) and how high the rows (y) are.
    struct Margins {
        MPoint low;
        MPoint high;

        [[nodiscard]] int32_t Get(MAxis axis, End end) const {
            return end == End::Low ? low[axis] : high[axis];
        }
        [[nodiscard]] int32_t& Get(MAxis axis, End end) { return end == End::Low ? low[axis] : high[axis]; }
    };

    [[nodiscard]] MLayoutClient& GetStrip(MAxis across, End end);
    /// The control of a corner if it is visible, else null. Its place is `end` along `axis`, and `otherEnd`
    /// along the other one.
    [[nodiscard]] MControl* GetCorner(MAxis axis, End end, End otherEnd) const;
    [[nodiscard]] Margins GetMargins(MControl& owner, const SizeComputer& computer);
    /// The pixels of a margin along its axis.
    static void CutTo(MRect& rect, MAxis axis, End end, int32_t thickness);

    Column left;
    Column right;
    Row top;
    Row bottom;
    std::array<MControl*, 4> corners{};  ///< by `MCornerTarget`
};
