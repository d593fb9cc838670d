#pragma once

#include "streams/basic/MStream.h"

#include <functional>

// MD5 digests (RFC 1321) as files, lists and journals hold them: 32 upper-case hexadecimal digits.

[[nodiscard]] MString MMD5OfBlock(const void* block, int32_t size);
/// Reads a stream from its position to its end, in pieces of 1 MiB. After each piece `progress` takes the
/// count of bytes read so far.
[[nodiscard]] MString MMD5OfStream(MStream& stream, const std::function<void(int64_t)>& progress = {});
/// Raises what `MStdFileStream` raises.
[[nodiscard]] MString MMD5OfFile(const MString& path);
