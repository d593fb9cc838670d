#include "ui/window/MBackBuffer.h"

bool MBackBuffer::BeginPaint(MPoint size) {
    if (HasPicture(size)) return true;
    backBuffer.CreateSurface(size.x, size.y);
    drawer.SetBitmap(&backBuffer);
    return false;
}
