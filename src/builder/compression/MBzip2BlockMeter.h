#pragma once

#include "builder/compression/MPieceCodec.h"

/// Ends a piece where its bytes just fill one block of a bzip2 compressor. A block is counted behind the
/// compressor's first step, which writes a run of 4 to 255 equal bytes as four of them and a count.
class MBzip2BlockMeter final : public MPieceMeter {
public:
    /// So that a piece of long runs, of which a block could hold many megabytes, stays in bounds.
    static constexpr uint32_t MaximumPlainSize = 2 << 20;

    /// Of a level from 1 to 9.
    explicit MBzip2BlockMeter(int32_t level)
        : blockLeft(100000u * static_cast<uint32_t>(level) - BlockReserve) {}

    size_t Take(std::span<const uint8_t> bytes) override;

private:
    /// What a compressor keeps free at the end of a block.
    static constexpr uint32_t BlockReserve = 19;
    static constexpr int32_t MaximumRun = 255;

    uint32_t blockLeft;
    uint32_t plainLeft = MaximumPlainSize;
    int32_t lastByte = -1;
    int32_t runLength = 0;
};
