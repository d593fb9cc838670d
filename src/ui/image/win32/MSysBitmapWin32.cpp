#include "ui/image/MSysBitmap.h"

#include "foundation/win32/MWindowsHeader.h"

bool MSysBitmap::CreateShared() {
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof description.bmiHeader;
    description.bmiHeader.biWidth = width;
    // Rows from the top.
    description.bmiHeader.biHeight = -height;
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    description.bmiHeader.biCompression = BI_RGB;
    void* memory = nullptr;
    const HBITMAP section = CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &memory, nullptr, 0);
    if (!section) return false;
    handle = reinterpret_cast<intptr_t>(section);
    pixels = static_cast<MColor*>(memory);
    return true;
}

MSysBitmap::~MSysBitmap() {
    if (handle) DeleteObject(reinterpret_cast<HGDIOBJ>(handle));
}
