#include "ui/window/win32/MWin32DC.h"

#include "ui/image/MBitmap.h"
#include "ui/image/MSysBitmap.h"

MWin32DC MWin32DC::OfWindow(HWND window) {
    return {GetDC(window), Origin::Window, window};
}

MWin32DC MWin32DC::CompatibleWith(const MWin32DC& other) {
    return {CreateCompatibleDC(other.GetContext()), Origin::Memory, nullptr};
}

MWin32DC::~MWin32DC() {
    if (origin == Origin::Window) ReleaseDC(window, GetContext());
    if (origin == Origin::Memory) DeleteDC(GetContext());
}

void MWin32DC::Show(const MBitmap& picture, const MRect& part) const {
    const MRect shown = part.Intersected(picture.GetRect());
    if (shown.IsEmpty()) return;
    if (const MSysBitmap* const shared = picture.GetSharedMemory()) {
        const MWin32DC memory = CompatibleWith(*this);
        const MGDIPreObject selected(memory, *shared);
        BitBlt(GetContext(), shown.left, shown.top, shown.GetWidth(), shown.GetHeight(), memory.GetContext(),
               shown.left, shown.top, SRCCOPY);
    } else {
        BITMAPINFO rows{};
        rows.bmiHeader.biSize = sizeof rows.bmiHeader;
        rows.bmiHeader.biWidth = picture.GetWidth();
        rows.bmiHeader.biHeight = -shown.GetHeight();
        rows.bmiHeader.biPlanes = 1;
        rows.bmiHeader.biBitCount = 32;
        rows.bmiHeader.biCompression = BI_RGB;
        SetDIBitsToDevice(GetContext(), shown.left, shown.top, static_cast<DWORD>(shown.GetWidth()),
                          static_cast<DWORD>(shown.GetHeight()), shown.left, 0, 0,
                          static_cast<UINT>(shown.GetHeight()), picture.GetRow(shown.top), &rows,
                          DIB_RGB_COLORS);
    }
    GdiFlush();
}

bool MWin32DC::CopyTo(const MBitmap& surface) const {
    const MSysBitmap* const shared = surface.GetSharedMemory();
    if (!shared) return false;
    const MWin32DC memory = CompatibleWith(*this);
    const MGDIPreObject selected(memory, *shared);
    const bool isCopied = BitBlt(memory.GetContext(), 0, 0, surface.GetWidth(), surface.GetHeight(),
                                 GetContext(), 0, 0, SRCCOPY);
    GdiFlush();
    return isCopied;
}
