#pragma once

#include "ui/geometry/MAxis.h"

#include <cstdint>

class MControl;

/// How long a control is in a layout, along either axis, in pixels and with its border on both sides.
class SizeComputer {
public:
    virtual ~SizeComputer() = default;
    [[nodiscard]] virtual int32_t GetX(MControl& control) const = 0;
    [[nodiscard]] virtual int32_t GetY(MControl& control) const = 0;
    [[nodiscard]] int32_t Get(MControl& control, MAxis axis) const {
        return axis == MAxis::X ? GetX(control) : GetY(control);
    }

    /// The border of one side in the style's scale; one below 0 is none.
    [[nodiscard]] static int32_t GetBorder(const MControl& control, MAxis axis);
    /// What the control keeps free behind itself, likewise.
    [[nodiscard]] static int32_t GetSpaceAfter(const MControl& control, MAxis axis);
};

/// The least that will do: the minimal size; of a control that does not stretch along the axis at least its
/// present size, since it keeps that; of a collapsed one what is left of its height.
class MinimalSizeComputer final : public SizeComputer {
public:
    [[nodiscard]] int32_t GetX(MControl& control) const override;
    [[nodiscard]] int32_t GetY(MControl& control) const override;
};

/// The present size, collapsed or not; the minimal one of a `Plastic` control, whose size follows from
/// others.
class CurrentSizeComputer final : public SizeComputer {
public:
    [[nodiscard]] int32_t GetX(MControl& control) const override;
    [[nodiscard]] int32_t GetY(MControl& control) const override;
};

/// What a control takes of a strip that is as wide as its widest one: as another computer says, but never
/// less than the present size, which it keeps there.
class StripSizeComputer final : public SizeComputer {
public:
    explicit StripSizeComputer(const SizeComputer& computer) : computer(computer) {}
    [[nodiscard]] int32_t GetX(MControl& control) const override;
    [[nodiscard]] int32_t GetY(MControl& control) const override;

private:
    const SizeComputer& computer;
};
