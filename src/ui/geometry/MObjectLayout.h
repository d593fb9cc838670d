#pragma once

#include "foundation/values/MValueEnum.h"

/// Where an object stands between left and right, or that it takes all of it.
enum class MHorizontalObjectLayout : uint8_t { Left, Center, Right, Fill };

/// Where an object stands between top and bottom, or that it takes all of it.
enum class MVerticalObjectLayout : uint8_t { Top, Center, Bottom, Fill };

inline constexpr const char* MHorizontalObjectLayoutNames[] = {"left", "center", "right", "fill"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MHorizontalObjectLayout> =
    MHorizontalObjectLayoutNames;

inline constexpr const char* MVerticalObjectLayoutNames[] = {"top", "center", "bottom", "fill"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MVerticalObjectLayout> = MVerticalObjectLayoutNames;
