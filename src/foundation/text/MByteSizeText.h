#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// A count of bytes as people read it: "512 B" below 1 KB, then one decimal and the largest unit that gives
/// at least 1, as "1.5 MB". A unit has 1024 of the one before it. A negative count gives "0 B".
[[nodiscard]] MString MByteSizeText(int64_t bytes);
