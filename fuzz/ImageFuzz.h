#pragma once

#include "foundation/base/MException.h"
#include "streams/basic/MMemoryStream.h"
#include "ui/image/MBitmap.h"

#include <cstddef>
#include <cstdint>

/// Loads the input as a picture and looks at every byte of it. Refusing is right; a refused picture is an
/// empty one.
inline void MFuzzImage(void (MBitmap::*load)(MStream&), const uint8_t* data, size_t size) {
    MMemoryStream stream(data, static_cast<int32_t>(size));
    MBitmap bitmap(1, 1);
    try {
        (bitmap.*load)(stream);
    } catch (const MException&) {
        if (!bitmap.IsEmpty()) __builtin_trap();
    }
    uint32_t sum = 0;
    for (int64_t i = 0; i < int64_t{bitmap.GetWidth()} * bitmap.GetHeight(); ++i)
        sum += bitmap.GetPixels()[i].GetWord();
    [[maybe_unused]] volatile uint32_t sink = sum;
}
