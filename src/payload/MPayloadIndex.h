#pragma once

#include "streams/basic/MMemoryStream.h"

#include <cstdint>
#include <memory>

/// A new decompressor for what a payload holds, by its flags (MPayloadFormat.h); it does not own the source.
[[nodiscard]] std::unique_ptr<MStream> MOpenDecompressor(MStream& source, uint32_t flags);

/// Reads the index XML out of its stored form, of which `stored` holds nothing else, and rewinds it.
/// Raises "Invalid large resource library format." (0x100) if it is larger than any index, and what
/// decompressing raises.
void MReadPayloadIndex(MStream& stored, uint32_t flags, MMemoryStream& text);
