#pragma once

#include "foundation/values/MValueEnum.h"

/// A large picture of a style, as message boxes show.
enum class MStdBitmap : int32_t {
    Yes,
    No,
    Notice,
    Question,
    Exclamation,
};

inline constexpr const char* MStdBitmapNames[] = {"yes", "no", "notice", "question", "exclamation"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MStdBitmap> = MStdBitmapNames;
