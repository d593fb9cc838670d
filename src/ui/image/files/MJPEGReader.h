#pragma once

class MBitmap;
class MStream;

/// Decodes a JPEG file (ITU-T T.81, JFIF, Adobe's forms of four inks) into opaque direct pixels. Raises what
/// `MBitmap::LoadJPEG` raises; the bitmap's content is then unspecified.
void MReadJPEG(MStream& stream, MBitmap& bitmap);
