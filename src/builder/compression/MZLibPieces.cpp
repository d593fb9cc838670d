#include "builder/compression/MZLibPieces.h"

#include "foundation/base/MException.h"
#include "payload/MPayloadFormat.h"

#include <zlib.h>

namespace {

/// Room for what a flush adds to the bound of the data.
constexpr uLong FlushReserve = 64;

[[noreturn]] void RaiseFailure() {
    MRaise(MExceptionGeneral, "Data could not be compressed.");
}

/// Deflates without header and check sum.
class RawDeflater {
public:
    explicit RawDeflater(int32_t level) {
        constexpr int MemoryLevel = 8;
        if (deflateInit2(&stream, level, Z_DEFLATED, -MAX_WBITS, MemoryLevel, Z_DEFAULT_STRATEGY) != Z_OK)
            RaiseFailure();
    }
    RawDeflater(const RawDeflater&) = delete;
    RawDeflater& operator=(const RawDeflater&) = delete;
    ~RawDeflater() { deflateEnd(&stream); }

    void Deflate(MPiece& piece) {
        if (piece.dictionarySize > 0 &&
            deflateSetDictionary(&stream, piece.plain.data(), piece.dictionarySize) != Z_OK)
            RaiseFailure();
        piece.packed.resize(deflateBound(&stream, piece.GetOwnSize()) + FlushReserve);
        stream.next_in = const_cast<Bytef*>(piece.GetOwnBytes());
        stream.avail_in = piece.GetOwnSize();
        stream.next_out = piece.packed.data();
        stream.avail_out = static_cast<uInt>(piece.packed.size());
        const int result = deflate(&stream, piece.isLast ? Z_FINISH : Z_SYNC_FLUSH);
        // A flush is complete only if it left room.
        const bool isComplete =
            piece.isLast ? result == Z_STREAM_END : result == Z_OK && stream.avail_out > 0;
        if (!isComplete || stream.avail_in > 0) RaiseFailure();
        piece.packed.resize(piece.packed.size() - stream.avail_out);
    }

private:
    z_stream stream = {};
};

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

/// Makes one zlib stream of deflated pieces: the header in front of the first, and the
/// Adler-32 of the whole item behind the last.
class Joiner final : public MPieceJoiner {
public:
    explicit Joiner(int32_t level) : level(level) {}

    void Add(const MPiece& piece, MStream& target) override;

private:
    int32_t level;
    uint32_t checksum = 0;
};

void Joiner::Add(const MPiece& piece, MStream& target) {
    if (piece.isFirst) {
        checksum = static_cast<uint32_t>(adler32(0, nullptr, 0));
        WriteHeader(level, target);
    }
    checksum = static_cast<uint32_t>(
        adler32_combine(checksum, piece.checksum, static_cast<z_off_t>(piece.GetOwnSize())));
    target.Write(piece.packed.data(), static_cast<int32_t>(piece.packed.size()));
    if (piece.isLast) WriteChecksum(checksum, target);
}

}  // namespace

uint32_t MZLibPieces::GetFlags() const {
    return MPayloadFormat::ItemsCompressed | MPayloadFormat::IndexCompressed;
}

std::unique_ptr<MPieceMeter> MZLibPieces::MakeMeter() const {
    return std::make_unique<MFixedPieceMeter>(PieceSize);
}

std::unique_ptr<MPieceJoiner> MZLibPieces::MakeJoiner() const {
    return std::make_unique<Joiner>(level);
}

void MZLibPieces::Compress(MPiece& piece) const {
    RawDeflater(level).Deflate(piece);
    piece.checksum =
        static_cast<uint32_t>(adler32(adler32(0, nullptr, 0), piece.GetOwnBytes(), piece.GetOwnSize()));
}
