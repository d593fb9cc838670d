// Reads the input as a JPEG file.

#include "fuzz/ImageFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MFuzzImage(&MBitmap::LoadJPEG, data, size);
    return 0;
}
