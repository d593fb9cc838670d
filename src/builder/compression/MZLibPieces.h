#pragma once

#include "builder/compression/MPieceCodec.h"

/// One zlib stream (RFC 1950) for an item, whose deflate blocks (RFC 1951) come from pieces of fixed size.
/// Each piece is deflated with the last 32 KiB before it as dictionary, so that matches reach back over its
/// beginning, and is ended by an empty stored block, which ends at a byte; the last one by the final block.
class MZLibPieces final : public MPieceCodec {
public:
    static constexpr uint32_t PieceSize = 1 << 19;
    static constexpr uint32_t WindowSize = 1 << 15;

    /// A level from 1 to 9.
    explicit MZLibPieces(int32_t level) : level(level) {}

    [[nodiscard]] uint32_t GetFlags() const override;
    [[nodiscard]] uint32_t GetDictionarySize() const override { return WindowSize; }
    [[nodiscard]] std::unique_ptr<MPieceMeter> MakeMeter() const override;
    [[nodiscard]] std::unique_ptr<MPieceJoiner> MakeJoiner() const override;
    void Compress(MPiece& piece) const override;

private:
    int32_t level;
};
