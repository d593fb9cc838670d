#pragma once

#include "foundation/values/MValueEnum.h"

/// A colour of a style for text and what belongs to it.
enum class MStdColor : int32_t {
    Text,
    Shape,
    Red,
    Green,
    Blue,
};

inline constexpr const char* MStdColorNames[] = {"text", "shape", "red", "green", "blue"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MStdColor> = MStdColorNames;
