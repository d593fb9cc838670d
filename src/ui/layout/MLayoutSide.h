#pragma once

#include "ui/layout/MLayoutSideBase.h"

#include <cstdint>

enum class MSideDirection : int32_t { Left, Right, Top, Bottom };

/// A strip along one side of the rectangle, as thick as its thickest control, in which the controls follow
/// one another from top to bottom or from left to right. The rest begins a gap behind it.
///
/// A `Plastic` control alone in a strip is as thick as it has to be at the strip's length: a text at the top
/// gets lower when the window gets wider.
class MLayoutSide : public MLayoutSideBase {
public:
    MLayoutSide(MControl& owner, MSideDirection direction) : MLayoutSideBase(owner), direction(direction) {}

    /// Raises "Invalid side-layout direction." (0).
    [[nodiscard]] MRect Arrange(MControl& owner, const MRect& rect) override;
    void Measure(MControl& owner, MLayoutNeeds& needs, const SizeComputer& computer) override;
    [[nodiscard]] MFlexibility GetFlexibility() override;

    MSideDirection direction;

private:
    /// Raises as `Arrange` does.
    [[nodiscard]] MAxis GetFlowAxis() const;
    /// Of a strip of a length: the thickness of a plastic control that has it for itself follows from that.
    void FitPlastic(int32_t length);
};

class MLayoutLeft final : public MLayoutSide {
public:
    explicit MLayoutLeft(MControl& owner) : MLayoutSide(owner, MSideDirection::Left) {}
};

class MLayoutRight final : public MLayoutSide {
public:
    explicit MLayoutRight(MControl& owner) : MLayoutSide(owner, MSideDirection::Right) {}
};

class MLayoutTop final : public MLayoutSide {
public:
    explicit MLayoutTop(MControl& owner) : MLayoutSide(owner, MSideDirection::Top) {}
};

class MLayoutBottom final : public MLayoutSide {
public:
    explicit MLayoutBottom(MControl& owner) : MLayoutSide(owner, MSideDirection::Bottom) {}
};
