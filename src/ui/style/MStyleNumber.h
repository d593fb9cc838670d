#pragma once

#include <algorithm>
#include <cmath>

/// A number of a definition within limits. What is no number (NaN) counts as 0.
[[nodiscard]] inline double MLimitStyleNumber(double value, double least, double most) {
    return std::clamp(std::isnan(value) ? 0.0 : value, least, most);
}
