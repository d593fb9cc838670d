#pragma once

#include "foundation/base/MGuard.h"
#include "ui/drawing/MDrawerToMBitmap.h"

template <class Body>
void MDrawerToMBitmap::Paint(const char* name, Body body) {
    MGuard(name, [&] {
        if (PrepareBitmap()) body();
    });
}
