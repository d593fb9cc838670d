#pragma once

#include <cstdint>

/// The byte layout of a product's data, shared by the reader and the builder. All integers are
/// little-endian.
///
///     executable = program payload trailer
///     trailer    = "MSFXMSFX" size:int64                  size is that of the payload, in bytes
///     payload    = item* index digest indexSize:int64 flags:uint32
///
/// An item is the content of one element of the index, as it stands or as one zlib or bzip2 stream.
/// The index is the install definition, an XML document, stored likewise in `indexSize` bytes. The
/// digest is the MD5 of the XML before compression, 16 bytes. "setup.dat" is a payload by itself, and so
/// are the parts of a "setup.multi" one behind the other.
/// docs/payload.md tells it at length.
namespace MPayloadFormat {

constexpr char TrailerMagic[] = {'M', 'S', 'F', 'X', 'M', 'S', 'F', 'X'};
constexpr int32_t TrailerMagicSize = sizeof TrailerMagic;
/// The magic and the 64-bit payload size, in bytes.
constexpr int32_t TrailerSize = TrailerMagicSize + 8;
/// What follows the digest: the 64-bit index size and the 32-bit flags, in bytes.
constexpr int32_t IndexFieldsSize = 12;
/// The largest stored index that a reader accepts, in bytes.
constexpr int64_t MaximumIndexSize = 0x200000;
/// The largest index XML that a reader decompresses, in bytes: a small file must not exhaust memory.
constexpr int64_t MaximumIndexTextSize = 0x10000000;

enum Flag : uint32_t {
    ItemsCompressed = 1,
    IndexCompressed = 2,
    UseBzip2 = 4,  ///< for both; clear means zlib
};

}  // namespace MPayloadFormat
