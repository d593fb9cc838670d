#include "ui/widgets/lists/MRowPlaces.h"

#include <bit>

namespace {

constexpr size_t GetLowestBit(size_t number) {
    return number & (~number + 1);
}

}  // namespace

void MRowPlaces::Reset(int32_t count, int32_t newEstimate) {
    estimate = newEstimate;
    heights.assign(static_cast<size_t>(count), estimate);
    isMeasured.assign(heights.size(), false);
    sums.clear();
}

void MRowPlaces::Insert(int32_t line, int32_t count) {
    heights.insert(heights.begin() + line, static_cast<size_t>(count), estimate);
    isMeasured.insert(isMeasured.begin() + line, static_cast<size_t>(count), false);
    sums.clear();
}

void MRowPlaces::Remove(int32_t line, int32_t count) {
    heights.erase(heights.begin() + line, heights.begin() + line + count);
    isMeasured.erase(isMeasured.begin() + line, isMeasured.begin() + line + count);
    sums.clear();
}

void MRowPlaces::EnsureSums() {
    if (sums.size() == heights.size() + 1) return;
    sums.assign(heights.size() + 1, 0);
    for (size_t i = 1; i < sums.size(); ++i) {
        sums[i] += heights[i - 1];
        const size_t above = i + GetLowestBit(i);
        if (above < sums.size()) sums[above] += sums[i];
    }
}

int32_t MRowPlaces::SetHeight(int32_t line, int32_t height) {
    const auto index = static_cast<size_t>(line);
    const int32_t difference = height - heights[index];
    heights[index] = height;
    isMeasured[index] = true;
    if (difference == 0) return 0;
    for (size_t i = index + 1; i < sums.size(); i += GetLowestBit(i)) sums[i] += difference;
    return difference;
}

int64_t MRowPlaces::GetTop(int32_t line) {
    EnsureSums();
    int64_t top = 0;
    for (auto i = static_cast<size_t>(line); i > 0; i -= GetLowestBit(i)) top += sums[i];
    return top;
}

int32_t MRowPlaces::FindLine(int64_t place) {
    EnsureSums();
    if (heights.empty() || place < 0) return heights.empty() ? -1 : 0;
    size_t line = 0;
    for (size_t step = std::bit_floor(heights.size()); step > 0; step /= 2) {
        if (line + step >= sums.size() || sums[line + step] > place) continue;
        line += step;
        place -= sums[line];
    }
    return static_cast<int32_t>(line < heights.size() ? line : heights.size() - 1);
}
