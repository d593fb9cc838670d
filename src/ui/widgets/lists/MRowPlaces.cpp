#include "ui/widgets/lists/MRowPlaces.h"

#include <bit>

namespace {

constexpr size_t GetLowestBit(size_t number) {
    return number & (~number + 1);
}

}  // namespace

void MRowPlaces::Reset(int32_t count, int32_t estimate) {
    heights.assign(static_cast<size_t>(count), estimate);
    isMeasured.assign(heights.size(), false);
    sums.resize(heights.size() + 1);
    for (size_t i = 1; i < sums.size(); ++i) sums[i] = static_cast<int64_t>(GetLowestBit(i)) * estimate;
}

int32_t MRowPlaces::SetHeight(int32_t row, int32_t height) {
    const auto index = static_cast<size_t>(row);
    const int32_t difference = height - heights[index];
    heights[index] = height;
    isMeasured[index] = true;
    if (difference == 0) return 0;
    for (size_t i = index + 1; i < sums.size(); i += GetLowestBit(i)) sums[i] += difference;
    return difference;
}

int64_t MRowPlaces::GetTop(int32_t row) const {
    int64_t top = 0;
    for (auto i = static_cast<size_t>(row); i > 0; i -= GetLowestBit(i)) top += sums[i];
    return top;
}

int32_t MRowPlaces::FindRow(int64_t place) const {
    if (heights.empty() || place < 0) return heights.empty() ? -1 : 0;
    size_t row = 0;
    for (size_t step = std::bit_floor(heights.size()); step > 0; step /= 2) {
        if (row + step >= sums.size() || sums[row + step] > place) continue;
        row += step;
        place -= sums[row];
    }
    return static_cast<int32_t>(row < heights.size() ? row : heights.size() - 1);
}
