#pragma once

#include "foundation/values/MValueEnum.h"

/// How a modal window was left; `None` as long as it runs.
enum class MModalValue : uint8_t { None, Ok, Cancel, Yes, No };

inline constexpr const char* MModalValueNames[] = {"none", "ok", "cancel", "yes", "no"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MModalValue> = MModalValueNames;
