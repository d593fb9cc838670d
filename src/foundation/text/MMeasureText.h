#pragma once

#include "foundation/text/MString.h"

#include <cstdint>

/// "{0} days, {1} hours", "{0} hours, {1} min" or "{0} min, {1} sec", by the largest unit that is there.
[[nodiscard]] MString MDurationText(int64_t seconds);

/// A time in seconds as milliseconds, the shorter the time the more decimals: "0 ms", "0.05 ms", "20 ms".
[[nodiscard]] MString MMillisecondsText(double seconds);

/// A fraction as percentage, with two decimals below one hundredth and else with one.
[[nodiscard]] MString MPercentText(double fraction);
