#include "ui/window/MMaskRectangles.h"

#include "ui/image/MAlphaMask.h"

#include <algorithm>

namespace {

void AddRuns(std::vector<MRect>& runs, const MAlphaMask& mask, int32_t y) {
    const uint8_t* const row = mask.GetRow(y);
    const uint8_t* const end = row + mask.GetWidth();
    const auto isCovered = [](uint8_t alpha) { return alpha > 0; };
    for (const uint8_t* run = std::find_if(row, end, isCovered); run != end;) {
        const uint8_t* const runEnd = std::find(run, end, 0);
        runs.push_back({static_cast<int32_t>(run - row), y, static_cast<int32_t>(runEnd - row) - 1, y});
        run = std::find_if(runEnd, end, isCovered);
    }
}

}  // namespace

std::vector<MRect> MFindMaskRectangles(const MAlphaMask& mask) {
    std::vector<MRect> rectangles;
    size_t band = 0;
    for (int32_t y = 0; y < mask.GetHeight(); ++y) {
        const size_t row = rectangles.size();
        AddRuns(rectangles, mask, y);
        const auto continues = [y](const MRect& above, const MRect& run) {
            return above.left == run.left && above.right == run.right && above.bottom == y - 1;
        };
        const auto rowBegin = rectangles.begin() + static_cast<ptrdiff_t>(row);
        if (std::equal(rectangles.begin() + static_cast<ptrdiff_t>(band), rowBegin, rowBegin,
                       rectangles.end(), continues)) {
            rectangles.resize(row);
            for (size_t i = band; i < row; ++i) ++rectangles[i].bottom;
        } else {
            band = row;
        }
    }
    return rectangles;
}
