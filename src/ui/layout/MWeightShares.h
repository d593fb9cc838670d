#pragma once

#include "ui/geometry/MLength.h"

#include <algorithm>
#include <cstdint>

/// Shares a length out by weights, in whole pixels. Each share is the part, rounded down, of what the ones
/// before have left: less than a pixel goes on from each to the next, and the last one takes what is over.
class MWeightShares final {
public:
    /// `weights` is the sum of all that will be asked for, each of which is above 0.
    MWeightShares(int64_t length, int64_t weights) : length(MClampLength(length)), weights(weights) {}

    /// `minimal`: the least that it is to be, of whatever is left.
    [[nodiscard]] int32_t Take(int32_t weight, int32_t minimal = 0) {
        const int64_t share = std::max<int64_t>(weight * length / weights, minimal);
        length = std::max<int64_t>(length - share, 0);
        weights -= weight;
        return static_cast<int32_t>(share);
    }

    /// The least length of which the share of a weight is so long.
    [[nodiscard]] static int64_t GetLengthFor(int32_t share, int32_t weight, int64_t weights) {
        const int64_t times = std::min<int64_t>(weights / weight, MaximalLength);
        return share * times + (share * (weights % weight) + weight - 1) / weight;
    }

private:
    int64_t length;
    int64_t weights;
};
