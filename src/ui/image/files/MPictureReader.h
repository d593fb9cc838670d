#pragma once

#include <cstdint>

class MBitmap;
class MStream;

/// Decodes a PNG, JPEG or TGA file into the bitmap; `firstByte`, that of the file, tells which it is. Raises
/// what `MBitmap::LoadPNG`, `LoadJPEG` and `LoadTGA` raise; the bitmap is then empty.
void MReadPicture(uint8_t firstByte, MStream& stream, MBitmap& bitmap);
