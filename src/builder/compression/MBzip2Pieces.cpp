#include "builder/compression/MBzip2Pieces.h"

#include "builder/compression/MBzip2BlockMeter.h"
#include "builder/compression/MBzip2Joiner.h"
#include "foundation/base/MException.h"
#include "payload/MPayloadFormat.h"

#include <bzlib.h>

namespace {

constexpr uint64_t HeaderBits = 32;
constexpr uint64_t MagicBits = 48;
constexpr uint64_t SumBits = 32;
constexpr uint64_t EndBits = MagicBits + SumBits;

[[noreturn]] void RaiseFailure() {
    MRaise(MExceptionGeneral, "Data could not be compressed.");
}

uint64_t GetBits(const std::vector<uint8_t>& bytes, uint64_t start, uint64_t count) {
    uint64_t value = 0;
    for (uint64_t bit = start; bit < start + count; ++bit)
        value = value << 1 | (bytes[bit / 8] >> (7 - bit % 8) & 1);
    return value;
}

/// Where the end of a stream of one block begins. Nothing tells the padding's length, but only at one of
/// eight places the magic stands, and the sum behind it is the block's own.
uint64_t FindEnd(const std::vector<uint8_t>& stream, uint32_t blockSum) {
    const uint64_t size = stream.size() * 8;
    if (size < HeaderBits + EndBits + EndBits) RaiseFailure();
    for (uint64_t padding = 0; padding < 8; ++padding) {
        const uint64_t end = size - padding - EndBits;
        if (GetBits(stream, end, MagicBits) == MBzip2Joiner::EndMagic &&
            GetBits(stream, end + MagicBits, SumBits) == blockSum)
            return end;
    }
    RaiseFailure();
}

}  // namespace

uint32_t MBzip2Pieces::GetFlags() const {
    return MPayloadFormat::ItemsCompressed | MPayloadFormat::IndexCompressed | MPayloadFormat::UseBzip2;
}

std::unique_ptr<MPieceMeter> MBzip2Pieces::MakeMeter() const {
    return std::make_unique<MBzip2BlockMeter>(level);
}

std::unique_ptr<MPieceJoiner> MBzip2Pieces::MakeJoiner() const {
    return std::make_unique<MBzip2Joiner>(level);
}

void MBzip2Pieces::Compress(MPiece& piece) const {
    if (piece.plain.empty()) return;
    const auto plainSize = static_cast<unsigned>(piece.plain.size());
    // The library's own bound for what does not compress.
    unsigned size = plainSize + plainSize / 100 + 600;
    std::vector<uint8_t>& packed = piece.packed;
    packed.resize(size);
    const int result =
        BZ2_bzBuffToBuffCompress(reinterpret_cast<char*>(packed.data()), &size,
                                 reinterpret_cast<char*>(piece.plain.data()), plainSize, level, 0, 0);
    if (result != BZ_OK) RaiseFailure();
    packed.resize(size);

    piece.checksum = static_cast<uint32_t>(GetBits(packed, HeaderBits + MagicBits, SumBits));
    piece.bitCount = FindEnd(packed, piece.checksum) - HeaderBits;
    packed.erase(packed.begin(), packed.begin() + HeaderBits / 8);
}
