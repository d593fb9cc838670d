#pragma once

class MBitmap;
class MStream;

/// Encodes the pixels of a bitmap as a PNG file (ISO/IEC 15948) of 8 bits, with alpha unless all
/// are opaque. Raises what `MBitmap::SavePNG` raises.
void MWritePNG(MStream& stream, const MBitmap& bitmap);
