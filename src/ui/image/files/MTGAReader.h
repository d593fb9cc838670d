#pragma once

class MBitmap;
class MStream;

/// Decodes a TGA file (Truevision TGA File Format Specification, version 2.0) into direct pixels. Raises what
/// `MBitmap::LoadTGA` raises; the bitmap's content is then unspecified.
///
///     header      18 bytes: length of the identifier; 1 if there is a colour map; image type; of the colour
///                 map the number of its first entry, the count and the bits of an entry; of the picture an
///                 origin that means nothing here, width, height, bits of a pixel; descriptor
///     identifier  skipped
///     colour map  entries of blue, green, red and, in 32 bits, alpha
///     pixels      of image type 1 numbers of map entries, of type 2 colours; of type 9 and 10 the same in
///                 packets: a byte with the count less one, whose highest bit says that one pixel stands
///                 for all
///
/// Numbers are little-endian, of 16 bits where they are not bytes. Bit 5 of the descriptor says that the top
/// row comes first, bit 4 that rows run from the right.
void MReadTGA(MStream& stream, MBitmap& bitmap);
