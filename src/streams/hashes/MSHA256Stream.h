#pragma once

#include "streams/hashes/MHashStream.h"

struct mbedtls_sha256_context;

/// SHA-256 (FIPS 180-4).
class MSHA256Stream final : public MHashStream {
public:
    static constexpr int32_t DigestSize = 32;

    MSHA256Stream();
    ~MSHA256Stream() noexcept override;

    void Write(const void* block, int32_t size) override;
    void Reset() override;
    void Finish() override;
    [[nodiscard]] int32_t GetDigestSize() const override { return DigestSize; }
    [[nodiscard]] std::span<const uint8_t> GetDigest() const override { return digest; }

protected:
    /// The library keeps blocks itself.
    void ProcessBlock(const uint8_t*) override {}

private:
    std::unique_ptr<mbedtls_sha256_context> context;
    uint8_t digest[DigestSize] = {};
};
