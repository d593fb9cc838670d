#include "ui/window/win32/MWin32Objects.h"

#include "foundation/base/MException.h"
#include "ui/image/MAlphaMask.h"
#include "ui/window/MMaskRectangles.h"

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

HRGN CreateRegion(const MAlphaMask& mask) {
    std::vector<RECT> rectangles;
    for (const MRect& rect : MFindMaskRectangles(mask))
        rectangles.push_back({rect.left, rect.top, rect.right + 1, rect.bottom + 1});
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
