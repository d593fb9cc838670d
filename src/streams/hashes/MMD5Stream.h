#pragma once

#include "streams/hashes/MHashStream.h"

/// MD5 (RFC 1321).
class MMD5Stream : public MHashStream {
public:
    static constexpr int32_t DigestSize = 16;

    MMD5Stream() { Reset(); }

    void Write(const void* block, int32_t size) override;
    void Reset() override;
    void Finish() override;
    [[nodiscard]] int32_t GetDigestSize() const override { return DigestSize; }
    [[nodiscard]] std::span<const uint8_t> GetDigest() const override;

protected:
    void ProcessBlock(const uint8_t* bytes) override { ProcessBlocks(bytes, 1); }

    /// Another value starts from other state words and so gives another digest; 0 is standard MD5.
    /// Takes effect with the next `Reset`.
    uint32_t variant = 0;

private:
    static constexpr int32_t BlockSize = 64;

    void ProcessBlocks(const uint8_t* bytes, int32_t count);
    void CountBits(uint32_t byteCount);
    [[nodiscard]] int32_t GetFillCount() const { return static_cast<int32_t>(bitCountLow >> 3) % BlockSize; }

    uint32_t bitCountLow = 0;
    uint32_t bitCountHigh = 0;
    uint32_t words[4] = {};
    uint8_t area[BlockSize] = {};
};
