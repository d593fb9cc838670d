#pragma once

#include "foundation/values/MValueEnum.h"

/// A font of a style.
enum class MStdFont : int32_t {
    Normal,
    Bold,
    Italic,
    Small,
    Large1,
    Large2,
    Large3,
    Large4,
};

inline constexpr const char* MStdFontNames[] = {"normal", "bold",   "italic", "small",
                                                "large1", "large2", "large3", "large4"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MStdFont> = MStdFontNames;
