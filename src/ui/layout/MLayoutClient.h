#pragma once

#include "ui/geometry/MAxis.h"
#include "ui/layout/MLayoutSideBase.h"

/// A row or a column of controls that takes all of the rectangle; nothing is left for those that follow.
class MLayoutClient : public MLayoutSideBase {
public:
    MLayoutClient(MControl& owner, MAxis direction) : MLayoutSideBase(owner), direction(direction) {}

    [[nodiscard]] MRect Arrange(MControl& owner, const MRect& rect) override;
    void Measure(MControl& owner, MLayoutNeeds& needs, const SizeComputer& computer) override;
    [[nodiscard]] MFlexibility GetFlexibility() override;

    MAxis direction;

protected:
    MLayoutClient(MControl& owner, MAxis direction, Part part)
        : MLayoutSideBase(owner, part), direction(direction) {}
};

class MLayoutHorizontal : public MLayoutClient {
public:
    explicit MLayoutHorizontal(MControl& owner) : MLayoutClient(owner, MAxis::X) {}

protected:
    MLayoutHorizontal(MControl& owner, Part part) : MLayoutClient(owner, MAxis::X, part) {}
};

class MLayoutVertical : public MLayoutClient {
public:
    explicit MLayoutVertical(MControl& owner) : MLayoutClient(owner, MAxis::Y) {}

protected:
    MLayoutVertical(MControl& owner, Part part) : MLayoutClient(owner, MAxis::Y, part) {}
};
