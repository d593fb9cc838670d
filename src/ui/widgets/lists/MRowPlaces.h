#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Where rows of different heights stand, one below the other. Heights are found out late, only for rows that
/// somebody wants to see: until then a row counts as high as most of them will be. A change and a question
/// cost about the logarithm of the number of rows; another number of rows costs that number.
///
/// Heights and places are in pixels, places from the top of the first row.
class MRowPlaces final {
public:
    /// Forgets all heights; each row is taken for `estimate` high.
    void Reset(int32_t count, int32_t estimate);
    /// All heights have to be found out again; until then the old ones count.
    void Doubt() { isMeasured.assign(isMeasured.size(), false); }

    [[nodiscard]] int32_t GetCount() const { return static_cast<int32_t>(heights.size()); }
    [[nodiscard]] bool IsMeasured(int32_t row) const { return isMeasured[static_cast<size_t>(row)]; }
    /// Returns how much higher the row is than it was taken for.
    int32_t SetHeight(int32_t row, int32_t height);
    [[nodiscard]] int32_t GetHeight(int32_t row) const { return heights[static_cast<size_t>(row)]; }
    /// That of the row behind the last one is the height of all.
    [[nodiscard]] int64_t GetTop(int32_t row) const;
    [[nodiscard]] int64_t GetTotal() const { return GetTop(GetCount()); }
    /// The row that holds a place: the first one above all, the last one below; -1 if there are none.
    [[nodiscard]] int32_t FindRow(int64_t place) const;

private:
    std::vector<int32_t> heights;
    std::vector<bool> isMeasured;
    /// A binary indexed tree: the entry `i`, from 1 on, is the height of the rows from `i - (i & -i)` to `i - 1`.
    std::vector<int64_t> sums;
};
