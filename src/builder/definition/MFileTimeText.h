#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// A file's time, as `MFile::GetFileTime` gives it, in whole seconds: "2014-12-23 14:19:26", UTC.
[[nodiscard]] MString MFileTimeToText(int64_t time);

/// The way back. Raises "Invalid datetime format." (0).
[[nodiscard]] int64_t MFileTimeFromText(const MString& text);
