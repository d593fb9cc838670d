#pragma once

#include "builder/compression/MPieceCodec.h"

#include <algorithm>

/// Ends a piece after a fixed number of bytes.
class MFixedPieceMeter final : public MPieceMeter {
public:
    explicit MFixedPieceMeter(size_t size) : left(size) {}

    size_t Take(std::span<const uint8_t> bytes) override {
        const size_t count = std::min(left, bytes.size());
        left -= count;
        return count;
    }

private:
    size_t left;
};
