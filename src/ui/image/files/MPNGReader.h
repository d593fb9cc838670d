#pragma once

class MBitmap;
class MStream;

/// Decodes a PNG file (ISO/IEC 15948) into direct pixels. Raises what `MBitmap::LoadPNG` raises; the bitmap's
/// content is then unspecified.
void MReadPNG(MStream& stream, MBitmap& bitmap);
