#pragma once

#include "foundation/base/MBuffer.h"
#include "streams/basic/MMemoryStream.h"

#include <string>

class MXMLItem;

/// A stream that reads these bytes, which it borrows.
[[nodiscard]] MMemoryStream MStreamOf(const std::string& bytes);
/// All that a stream in memory holds, wherever it stands.
[[nodiscard]] std::string MBytesOf(MMemoryStream& stream);
[[nodiscard]] std::string MBytesOf(const MCHARBuffer& buffer);
/// What is left of a stream, read in pieces of that many bytes.
[[nodiscard]] std::string MReadAll(MStream& stream, int32_t pieceSize = 1000);

/// Bytes that look random and do not compress; the same for the same seed.
[[nodiscard]] std::string MTestNoise(size_t size, uint32_t seed = 7);
/// A number as `size` bytes, little-endian.
[[nodiscard]] std::string MWordOf(int64_t value, size_t size = 4);
/// The bytes as a zlib stream (RFC 1950) and as a bzip2 stream, by the bare libraries.
[[nodiscard]] std::string MDeflate(const std::string& bytes);
[[nodiscard]] std::string MBzip2(const std::string& bytes);
/// The MD5 digest in hexadecimal digits.
[[nodiscard]] std::string MTestDigest(const std::string& bytes);

/// Reads an XML document into `root`, and gives an element on one line, without the header.
void MLoadXML(MXMLItem& root, const std::string& text);
[[nodiscard]] std::string MSaveXML(const MXMLItem& item);
