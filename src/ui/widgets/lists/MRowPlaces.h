#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Where lines of different heights stand, one below the other. Heights are found out late, only for lines that
/// somebody wants to see: until then a line counts as high as most of them will be. A change of a height and a
/// question cost about the logarithm of the number of lines; the first question after others have come or gone
/// costs that number.
///
/// Heights and places are in pixels, places from the top of the first line.
class MRowPlaces final {
public:
    /// Forgets all heights.
    void Reset(int32_t count, int32_t newEstimate);
    /// All heights have to be found out again; until then the old ones count.
    void Doubt() { isMeasured.assign(isMeasured.size(), false); }
    void Insert(int32_t line, int32_t count);
    void Remove(int32_t line, int32_t count);

    [[nodiscard]] int32_t GetCount() const { return static_cast<int32_t>(heights.size()); }
    [[nodiscard]] bool IsMeasured(int32_t line) const { return isMeasured[static_cast<size_t>(line)]; }
    /// Returns how much higher the line is than it was taken for.
    int32_t SetHeight(int32_t line, int32_t height);
    [[nodiscard]] int32_t GetHeight(int32_t line) const { return heights[static_cast<size_t>(line)]; }
    /// What a line counts as until it is measured.
    [[nodiscard]] int32_t GetEstimate() const { return estimate; }
    /// That of the line behind the last one is the height of all.
    [[nodiscard]] int64_t GetTop(int32_t line);
    [[nodiscard]] int64_t GetTotal() { return GetTop(GetCount()); }
    /// The line that holds a place: the first one above all, the last one below; -1 if there are none.
    [[nodiscard]] int32_t FindLine(int64_t place);

private:
    void EnsureSums();

    int32_t estimate = 1;
    std::vector<int32_t> heights;
    std::vector<bool> isMeasured;
    /// A binary indexed tree: the entry `i`, from 1 on, is the height of as many lines before the line `i` as
    /// the lowest bit of `i` says. Empty if it has to be made anew.
    std::vector<int64_t> sums;
};
