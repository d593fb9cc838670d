#pragma once

#include "foundation/text/MString.h"

#include <string>

/// A text as the system takes it.
[[nodiscard]] std::wstring MToWide(const MString& text);
/// A copy of what the system gives; null gives the empty text.
[[nodiscard]] MString MFromWide(const wchar_t* text);

/// A path as the system takes it: with backslashes, and with the prefix that lifts the limit of 260
/// characters where the path is long.
[[nodiscard]] std::wstring MNativePath(const MString& path);
