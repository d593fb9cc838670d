#include "builder/compression/MBzip2Joiner.h"

#include <bit>

void MBzip2Joiner::Add(const MPiece& piece, MStream& target) {
    if (piece.isFirst) Begin();
    if (piece.bitCount > 0) {
        bits.Append(piece.packed, piece.bitCount);
        streamSum = std::rotl(streamSum, 1) ^ piece.checksum;
    }
    if (piece.isLast) End();
    bits.WriteTo(target);
}

void MBzip2Joiner::Begin() {
    streamSum = 0;
    for (const char character : {'B', 'Z', 'h'}) bits.Append(static_cast<uint8_t>(character), 8);
    bits.Append('0' + static_cast<uint64_t>(level), 8);
}

void MBzip2Joiner::End() {
    bits.Append(EndMagic, 48);
    bits.Append(streamSum, 32);
    bits.Pad();
}
