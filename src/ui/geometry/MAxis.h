#pragma once

#include <cstdint>

/// A direction of the screen. What is the same for both is written once, with one of these as argument; as a
/// number it is what some operations call a dimension.
enum class MAxis : uint8_t { X = 0, Y = 1 };

/// The other one.
[[nodiscard]] constexpr MAxis Across(MAxis axis) {
    return axis == MAxis::X ? MAxis::Y : MAxis::X;
}
