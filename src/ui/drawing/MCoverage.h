#pragma once

#include "ui/geometry/MRect.h"

#include <cstdint>
#include <span>
#include <vector>

/// Pixels side by side in a row, and how much of each lies inside of outlines: 1 to 255.
struct MCoverageRun {
    MPoint start;
    int32_t count;
    const uint8_t* shares;  ///< of each pixel; null if all have `share`
    uint8_t share;

    [[nodiscard]] uint8_t GetShare(int32_t index) const { return shares ? shares[index] : share; }
};

/// How much of each pixel lies inside of outlines, exactly: the area that the outlines enclose there, added
/// up over all of them and cut to one pixel. Outlines that run the other way round take away.
///
/// What a pixel gets does not depend on the area that is looked at, and is the same on every platform: the
/// areas are computed in doubles by the four basic operations only, rounded to 2^-20 of a pixel and summed up
/// in whole numbers.
class MCoverage {
public:
    /// Only pixels of `area` are looked at. What lies between edges takes hardly any time and memory.
    explicit MCoverage(const MRect& area);

    /// A closed outline; the last point leads back to the first one.
    void AddOutline(std::span<const MPointF> points);

    [[nodiscard]] const MRect& GetArea() const { return area; }
    /// Calls `paint` with an `MCoverageRun` for all pixels that are covered at all, row by row from the top.
    /// The run's shares are valid during the call.
    template <class Function>
    void ForEachRun(Function paint) const;

private:
    /// A piece of a row. For each pixel, by how much its covered area differs from that of the pixel to its
    /// left.
    struct Block {
        static constexpr int32_t Width = 32;

        uint32_t marks = 0;         ///< a bit for each pixel that has a step
        int64_t steps[Width] = {};  ///< wide, since any number of edges may fall on a pixel
    };
    static constexpr int32_t None = -1;
    static constexpr int32_t UnitBits = 20;
    static constexpr int32_t Unit = 1 << UnitBits;  ///< the area of a pixel

    void AddLine(MPointF from, MPointF to);
    void AddSpan(int32_t row, double x0, double x1, double height);
    // Places from here on are counted from the top left pixel of the area.
    void AddStep(int32_t x, int32_t y, int32_t units);
    [[nodiscard]] int64_t GetStep(int32_t x, int32_t y) const;
    /// The first pixel from `x` on that has a step; the area's width if there is none.
    [[nodiscard]] int32_t FindStep(int32_t x, int32_t y) const;
    [[nodiscard]] size_t GetIndex(int32_t x, int32_t y) const {
        return static_cast<size_t>(y) * blocksPerRow + static_cast<size_t>(x / Block::Width);
    }
    [[nodiscard]] static uint8_t ToShare(int64_t units);

    MRect area;
    size_t blocksPerRow;
    std::vector<int32_t> blockNumbers;  ///< of each piece of each row, `None` where there are no steps
    std::vector<Block> blocks;
};

template <class Function>
void MCoverage::ForEachRun(Function paint) const {
    // Fewer pixels that are covered alike do not deserve a call of their own.
    constexpr int32_t ShortestEvenRun = 16;
    const int32_t width = area.GetWidth();
    std::vector<uint8_t> shares;
    for (int32_t y = 0; y < area.GetHeight(); ++y) {
        const MPoint start{area.left, area.top + y};
        const auto paintShares = [&](int32_t end) {
            const auto count = static_cast<int32_t>(shares.size());
            if (count > 0) paint(MCoverageRun{start + MPoint{end - count, 0}, count, shares.data(), 0});
            shares.clear();
        };
        int64_t units = 0;
        for (int32_t x = FindStep(0, y), end; x < width; x = end) {
            units += GetStep(x, y);
            end = FindStep(x + 1, y);
            const uint8_t share = ToShare(units);
            if (share != 0 && end - x < ShortestEvenRun) {
                shares.insert(shares.end(), static_cast<size_t>(end - x), share);
            } else {
                paintShares(x);
                if (share != 0) paint(MCoverageRun{start + MPoint{x, 0}, end - x, nullptr, share});
            }
        }
        paintShares(width);
    }
}
