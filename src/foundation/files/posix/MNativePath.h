#pragma once

#include "foundation/text/MString.h"

#include <string>
#include <string_view>

/// A path as the system takes it: the exact UTF-8 form, in which bytes that are no UTF-8 survive
/// (MUnicode.h). Elsewhere in this system a backslash separates as a slash does; here it is a character of
/// names, and `MRawBackslash` stands for it.
[[nodiscard]] std::string MNativePath(const MString& path);

/// The way back, for names that the system gives.
[[nodiscard]] MString MPathFromNative(std::string_view path);
