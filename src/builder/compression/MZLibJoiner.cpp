#include "builder/compression/MZLibJoiner.h"

#include <zlib.h>

namespace {

/// Method and window of 32 KiB, then the level's class and what makes the 16 bits a multiple of 31.
void WriteHeader(int32_t level, MStream& target) {
    const int32_t levelClass = level < 2 ? 0 : level < 6 ? 1 : level == 6 ? 2 : 3;
    uint32_t header = 0x7800u | static_cast<uint32_t>(levelClass) << 6;
    header += 31 - header % 31;
    const uint8_t bytes[] = {static_cast<uint8_t>(header >> 8), static_cast<uint8_t>(header)};
    target.Write(bytes, sizeof bytes);
}

void WriteChecksum(uint32_t checksum, MStream& target) {
    const uint8_t bytes[] = {static_cast<uint8_t>(checksum >> 24), static_cast<uint8_t>(checksum >> 16),
                             static_cast<uint8_t>(checksum >> 8), static_cast<uint8_t>(checksum)};
    target.Write(bytes, sizeof bytes);
}

}  // namespace

void MZLibJoiner::Add(const MPiece& piece, MStream& target) {
    if (piece.isFirst) {
        checksum = static_cast<uint32_t>(adler32(0, nullptr, 0));
        WriteHeader(level, target);
    }
    checksum = static_cast<uint32_t>(
        adler32_combine(checksum, piece.checksum, static_cast<z_off_t>(piece.GetOwnSize())));
    target.Write(piece.packed.data(), static_cast<int32_t>(piece.packed.size()));
    if (piece.isLast) WriteChecksum(checksum, target);
}
