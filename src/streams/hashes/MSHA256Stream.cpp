#include "streams/hashes/MSHA256Stream.h"

#include <mbedtls/sha256.h>

// The library's functions fail with hardware of its own only, which is not used.

MSHA256Stream::MSHA256Stream() : context(std::make_unique<mbedtls_sha256_context>()) {
    MSHA256Stream::Reset();
}

MSHA256Stream::~MSHA256Stream() noexcept = default;

void MSHA256Stream::Write(const void* block, int32_t size) {
    if (size > 0)
        (void)mbedtls_sha256_update_ret(context.get(), static_cast<const uint8_t*>(block),
                                        static_cast<size_t>(size));
}

void MSHA256Stream::Reset() {
    mbedtls_sha256_init(context.get());
    (void)mbedtls_sha256_starts_ret(context.get(), 0);
}

void MSHA256Stream::Finish() {
    (void)mbedtls_sha256_finish_ret(context.get(), digest);
}
