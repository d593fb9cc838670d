#pragma once

#include "foundation/values/MValueEnum.h"

/// How large the caption of a control is.
enum class MCaptionType : uint8_t {
    None,
    Small,
    Normal,
    Large,
    Unset,  ///< as long as nobody has said; it has no name
};

inline constexpr const char* MCaptionTypeNames[] = {"none", "small", "normal", "large"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MCaptionType> = MCaptionTypeNames;
