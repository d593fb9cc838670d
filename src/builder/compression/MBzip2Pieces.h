#pragma once

#include "builder/compression/MPieceCodec.h"

/// One bzip2 stream for an item: the header "BZh" with the level, blocks, and an end with the check sum of
/// all of them. The format has no official description; this follows the one that its decompressors share:
///
///     stream = "BZh" level:8 block* 0x177245385090:48 streamSum:32 padding to a byte
///     block  = 0x314159265359:48 blockSum:32 ...
///
/// with the highest bit first. Blocks do not know of each other, and begin at any bit. Each piece makes one
/// block: the library compresses it to a stream of its own, and the joiner moves the block's bits to where
/// the one before ended. `streamSum` is rotated left by one bit, and combined with each `blockSum` by
/// exclusive or.
class MBzip2Pieces final : public MPieceCodec {
public:
    /// A level from 1 to 9: blocks of that many times 100,000 bytes.
    explicit MBzip2Pieces(int32_t level) : level(level) {}

    [[nodiscard]] uint32_t GetFlags() const override;
    [[nodiscard]] std::unique_ptr<MPieceMeter> MakeMeter() const override;
    [[nodiscard]] std::unique_ptr<MPieceJoiner> MakeJoiner() const override;
    void Compress(MPiece& piece) const override;

private:
    int32_t level;
};
