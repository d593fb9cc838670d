#include "builder/compression/MZLibPieces.h"

#include "builder/compression/MFixedPieceMeter.h"
#include "builder/compression/MZLibJoiner.h"
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

}  // namespace

uint32_t MZLibPieces::GetFlags() const {
    return MPayloadFormat::ItemsCompressed | MPayloadFormat::IndexCompressed;
}

std::unique_ptr<MPieceMeter> MZLibPieces::MakeMeter() const {
    return std::make_unique<MFixedPieceMeter>(PieceSize);
}

std::unique_ptr<MPieceJoiner> MZLibPieces::MakeJoiner() const {
    return std::make_unique<MZLibJoiner>(level);
}

void MZLibPieces::Compress(MPiece& piece) const {
    RawDeflater(level).Deflate(piece);
    piece.checksum =
        static_cast<uint32_t>(adler32(adler32(0, nullptr, 0), piece.GetOwnBytes(), piece.GetOwnSize()));
}
