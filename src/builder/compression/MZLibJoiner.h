#pragma once

#include "builder/compression/MPieceCodec.h"

/// Makes one zlib stream of deflated pieces (see MZLibPieces.h): the header in front of the first, and the
/// Adler-32 of the whole item behind the last.
class MZLibJoiner final : public MPieceJoiner {
public:
    explicit MZLibJoiner(int32_t level) : level(level) {}

    void Add(const MPiece& piece, MStream& target) override;

private:
    int32_t level;
    uint32_t checksum = 0;
};
