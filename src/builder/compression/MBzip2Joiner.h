#pragma once

#include "builder/compression/MBitWriter.h"
#include "builder/compression/MPieceCodec.h"

/// Makes one bzip2 stream of blocks (see MBzip2Pieces.h). A piece's `packed` begins with the first of its
/// `bitCount` bits.
class MBzip2Joiner final : public MPieceJoiner {
public:
    static constexpr uint64_t EndMagic = 0x177245385090;

    explicit MBzip2Joiner(int32_t level) : level(level) {}

    void Add(const MPiece& piece, MStream& target) override;

private:
    void Begin();
    void End();

    int32_t level;
    uint32_t streamSum = 0;
    MBitWriter bits;
};
