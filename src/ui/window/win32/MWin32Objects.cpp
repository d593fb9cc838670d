#include "ui/window/win32/MWin32Objects.h"

#include "foundation/base/MException.h"
#include "ui/image/MAlphaMask.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace {

COLORREF ToNative(MColor color) {
    return RGB(color.red, color.green, color.blue);
}

/// Takes over a handle of GDI.
intptr_t Check(HGDIOBJ object, const char* failure) {
    if (!object) MRaise(MExceptionGDI, failure);
    return reinterpret_cast<intptr_t>(object);
}

void AddRuns(std::vector<RECT>& runs, const MAlphaMask& mask, int32_t y) {
    const uint8_t* const row = mask.GetRow(y);
    const uint8_t* const end = row + mask.GetWidth();
    const auto isCovered = [](uint8_t alpha) { return alpha > 0; };
    for (const uint8_t* run = std::find_if(row, end, isCovered); run != end;) {
        const uint8_t* const runEnd = std::find(run, end, 0);
        runs.push_back({static_cast<LONG>(run - row), y, static_cast<LONG>(runEnd - row), y + 1});
        run = std::find_if(runEnd, end, isCovered);
    }
}

/// The rectangles of a mask from the top; rows that are alike are in one band.
std::vector<RECT> FindRectangles(const MAlphaMask& mask) {
    std::vector<RECT> rectangles;
    size_t band = 0;
    for (int32_t y = 0; y < mask.GetHeight(); ++y) {
        const size_t row = rectangles.size();
        AddRuns(rectangles, mask, y);
        const auto continues = [y](const RECT& above, const RECT& run) {
            return above.left == run.left && above.right == run.right && above.bottom == y;
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

HRGN CreateRegion(const MAlphaMask& mask) {
    const std::vector<RECT> rectangles = FindRectangles(mask);
    if (rectangles.empty()) return CreateRectRgn(0, 0, 0, 0);
    const size_t size = rectangles.size() * sizeof(RECT);
    std::vector<BYTE> data(sizeof(RGNDATAHEADER) + size);
    const RGNDATAHEADER header = {sizeof header,
                                  RDH_RECTANGLES,
                                  static_cast<DWORD>(rectangles.size()),
                                  static_cast<DWORD>(size),
                                  {0, 0, mask.GetWidth(), mask.GetHeight()}};
    std::memcpy(data.data(), &header, sizeof header);
    std::memcpy(data.data() + sizeof header, rectangles.data(), size);
    return ExtCreateRegion(nullptr, static_cast<DWORD>(data.size()),
                           reinterpret_cast<const RGNDATA*>(data.data()));
}

}  // namespace

MWin32Pen::MWin32Pen(MColor color, int32_t width) {
    handle = Check(CreatePen(PS_SOLID, width, ToNative(color)), "Could not create system pen.");
}

MWin32Pen::~MWin32Pen() {
    DeleteObject(reinterpret_cast<HGDIOBJ>(handle));
}

MWin32Brush::MWin32Brush() {
    const LOGBRUSH hollow = {BS_HOLLOW, 0, 0};
    handle = Check(CreateBrushIndirect(&hollow), "Could not create hollow brush.");
}

MWin32Brush::MWin32Brush(MColor color) {
    handle = Check(CreateSolidBrush(ToNative(color)), "Could not create solid brush.");
}

MWin32Brush::~MWin32Brush() {
    DeleteObject(reinterpret_cast<HGDIOBJ>(handle));
}

MWin32Region::MWin32Region(const MAlphaMask& mask) {
    handle = Check(CreateRegion(mask), "Could not create rectangular region.");
}

MWin32Region::~MWin32Region() {
    if (handle) DeleteObject(reinterpret_cast<HGDIOBJ>(handle));
}
