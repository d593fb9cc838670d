#pragma once

#include "streams/hashes/MHashStream.h"

/// RIPEMD-160 (Dobbertin, Bosselaers, Preneel, 1996).
class MRIPEMDStream : public MHashStream {
public:
    static constexpr int32_t DigestSize = 20;

    MRIPEMDStream();

    void Write(const void* block, int32_t size) override;
    void Reset() override;
    void Finish() override;
    [[nodiscard]] int32_t GetDigestSize() const override { return DigestSize; }
    [[nodiscard]] std::span<const uint8_t> GetDigest() const override;

protected:
    void ProcessBlock(const uint8_t* bytes) override;

private:
    uint32_t words[5] = {};
    /// In bytes.
    uint64_t length = 0;
};
