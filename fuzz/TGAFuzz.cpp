// Reads the input as a TGA file.

#include "fuzz/ImageFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MFuzzImage(&MBitmap::LoadTGA, data, size);
    return 0;
}
