#pragma once

#include "streams/basic/MMemoryStream.h"
#include "streams/hashes/MMD5Stream.h"

#include <string_view>

/// Writes a payload whose index is what it says, since no mutation hits the digest of one.
inline void WriteFuzzPayload(std::string_view items, std::string_view index, int32_t flags,
                             MStream& payload) {
    const auto indexSize = static_cast<int32_t>(index.size());
    payload.Write(items.data(), static_cast<int32_t>(items.size()));
    payload.Write(index.data(), indexSize);
    MMD5Stream hash;
    hash.Write(index.data(), indexSize);
    hash.Finish();
    hash.WriteDigest(payload);
    payload.WriteInt64(indexSize);
    payload.WriteInt32(flags);
}
