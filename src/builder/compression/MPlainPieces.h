#pragma once

#include "builder/compression/MPieceCodec.h"

/// Items as they stand.
class MPlainPieces final : public MPieceCodec {
public:
    static constexpr uint32_t PieceSize = 1 << 20;

    [[nodiscard]] uint32_t GetFlags() const override { return 0; }
    [[nodiscard]] std::unique_ptr<MPieceMeter> MakeMeter() const override;
    [[nodiscard]] std::unique_ptr<MPieceJoiner> MakeJoiner() const override;
    void Compress(MPiece&) const override {}
};
