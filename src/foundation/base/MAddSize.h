#pragma once

#include "foundation/base/MRaise.h"

#include <concepts>
#include <cstdint>
#include <limits>

/// Adds a size or a count that was read from somewhere to the sum of others. Raises "The number {0} cannot be
/// a size: ..." (0) for a negative one, and where the sum would be too large for its type.
template <std::signed_integral Number>
void MAddSize(Number& sum, Number size) {
    if (size < 0 || size > std::numeric_limits<Number>::max() - sum)
        MRaise(MExceptionGeneral,
               "The number {0} cannot be a size: it is negative, or too large together with the others. The "
               "file that it was read from is damaged.",
               static_cast<int64_t>(size));
    sum += size;
}
