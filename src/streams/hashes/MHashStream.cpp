#include "streams/hashes/MHashStream.h"

#include "foundation/base/MException.h"

#include <algorithm>
#include <cstring>

void MHashStream::Initialize(int32_t newBlockSize) {
    blockSize = newBlockSize;
    block = std::make_unique<uint8_t[]>(static_cast<size_t>(newBlockSize));
    fillCount = 0;
}

void MHashStream::Reset() {
    fillCount = 0;
}

void MHashStream::Write(const void* source, int32_t size) {
    if (blockSize <= 0) MRaise(MExceptionGeneral, "Cryptographic hash stream has not been initialized.");
    const auto* bytes = static_cast<const uint8_t*>(source);
    while (size > 0) {
        if (fillCount == 0 && size >= blockSize) {
            // A whole block is taken from the caller's memory as it stands.
            ProcessBlock(bytes);
            bytes += blockSize;
            size -= blockSize;
            continue;
        }
        const int32_t count = std::min(size, blockSize - fillCount);
        std::memcpy(block.get() + fillCount, bytes, static_cast<size_t>(count));
        bytes += count;
        size -= count;
        fillCount += count;
        if (fillCount < blockSize) continue;
        ProcessBlock(block.get());
        fillCount = 0;
    }
}

void MHashStream::Pad(uint64_t bitCount) {
    constexpr int32_t lengthSize = 8;
    static constexpr uint8_t padding[64] = {0x80};
    const int32_t zeros = (blockSize - lengthSize - 1 - fillCount + blockSize) % blockSize;
    MHashStream::Write(padding, 1 + zeros);
    MHashStream::Write(&bitCount, lengthSize);
}

void MHashStream::WriteDigest(MStream& target) {
    const std::span<const uint8_t> digest = GetDigest();
    target.Write(digest.data(), static_cast<int32_t>(digest.size()));
}

MString MHashStream::GetDigestText() const {
    MString text;
    for (const uint8_t byte : GetDigest()) {
        text.Append(MChar::FromHexDigit(byte >> 4));
        text.Append(MChar::FromHexDigit(byte));
    }
    return text;
}
