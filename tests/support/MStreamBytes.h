#pragma once

#include "streams/MMemoryStream.h"

#include <string>

/// All that a stream in memory holds.
inline std::string MBytesOf(MMemoryStream& stream) {
    const char* bytes = stream.GetBuffer().Get();
    return bytes ? std::string(bytes, static_cast<size_t>(stream.GetSize())) : std::string();
}
