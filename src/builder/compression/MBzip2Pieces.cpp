#include "builder/compression/MBzip2Pieces.h"

#include "foundation/base/MException.h"
#include "payload/MPayloadFormat.h"

#include <algorithm>
#include <bit>
#include <bzlib.h>

namespace {

constexpr uint64_t EndMagic = 0x177245385090;
constexpr uint64_t HeaderBits = 32;
constexpr uint64_t MagicBits = 48;
constexpr uint64_t SumBits = 32;
constexpr uint64_t EndBits = MagicBits + SumBits;

/// Puts bits one behind the other, the highest of a byte first.
class BitWriter {
public:
    /// The low `count` bits of a value, at most 64.
    void Append(uint64_t value, int32_t count);
    /// The first `count` bits of a block.
    void Append(const std::vector<uint8_t>& bytes, uint64_t count);
    /// Fills the last byte with zeros.
    void Pad();
    /// Writes the whole bytes and keeps the bits behind them.
    void WriteTo(MStream& target);

private:
    std::vector<uint8_t> whole;
    /// The bits of a byte that is not yet whole stand at its top; below them it is 0.
    uint32_t open = 0;
    int32_t openCount = 0;
};

void BitWriter::Append(uint64_t value, int32_t count) {
    while (count > 0) {
        const int32_t step = std::min(count, 8 - openCount);
        count -= step;
        const auto next = static_cast<uint32_t>(value >> count) & ((1u << step) - 1);
        openCount += step;
        open |= next << (8 - openCount);
        if (openCount == 8) Pad();
    }
}

void BitWriter::Append(const std::vector<uint8_t>& bytes, uint64_t count) {
    const uint64_t byteCount = count / 8;
    whole.reserve(whole.size() + byteCount + 1);
    for (uint64_t i = 0; i < byteCount; ++i) {
        const uint32_t byte = bytes[i];
        whole.push_back(static_cast<uint8_t>(open | byte >> openCount));
        open = byte << (8 - openCount) & 0xFF;
    }
    const auto rest = static_cast<int32_t>(count % 8);
    if (rest > 0) Append(static_cast<uint64_t>(bytes[byteCount] >> (8 - rest)), rest);
}

void BitWriter::Pad() {
    if (openCount == 0) return;
    whole.push_back(static_cast<uint8_t>(open));
    open = 0;
    openCount = 0;
}

void BitWriter::WriteTo(MStream& target) {
    if (!whole.empty()) target.Write(whole.data(), static_cast<int32_t>(whole.size()));
    whole.clear();
}

/// Ends a piece where its bytes just fill one block of a bzip2 compressor. A block is counted behind the
/// compressor's first step, which writes a run of 4 to 255 equal bytes as four of them and a count.
class BlockMeter final : public MPieceMeter {
public:
    /// So that a piece of long runs, of which a block could hold many megabytes, stays in bounds.
    static constexpr uint32_t MaximumPlainSize = 2 << 20;

    /// Of a level from 1 to 9.
    explicit BlockMeter(int32_t level) : blockLeft(100000u * static_cast<uint32_t>(level) - BlockReserve) {}

    size_t Take(std::span<const uint8_t> bytes) override;

private:
    /// What a compressor keeps free at the end of a block.
    static constexpr uint32_t BlockReserve = 19;
    static constexpr int32_t MaximumRun = 255;

    uint32_t blockLeft;
    uint32_t plainLeft = MaximumPlainSize;
    int32_t lastByte = -1;
    int32_t runLength = 0;
};

/// What the byte at a place of a run, counted from 1, takes in a block: the fourth brings the count along.
uint32_t GetCost(int32_t placeInRun) {
    if (placeInRun < 4) return 1;
    return placeInRun == 4 ? 2 : 0;
}

size_t BlockMeter::Take(std::span<const uint8_t> bytes) {
    const size_t count = std::min<size_t>(bytes.size(), plainLeft);
    size_t taken = 0;
    for (; taken < count; ++taken) {
        const uint8_t byte = bytes[taken];
        runLength = byte == lastByte && runLength < MaximumRun ? runLength + 1 : 1;
        const uint32_t cost = GetCost(runLength);
        if (cost > blockLeft) {
            // The piece ends here, whatever else is offered.
            plainLeft = static_cast<uint32_t>(taken);
            break;
        }
        blockLeft -= cost;
        lastByte = byte;
    }
    plainLeft -= static_cast<uint32_t>(taken);
    return taken;
}

/// Makes one bzip2 stream of blocks. A piece's `packed` begins with the first of its `bitCount` bits.
class Joiner final : public MPieceJoiner {
public:
    explicit Joiner(int32_t level) : level(level) {}

    void Add(const MPiece& piece, MStream& target) override;

private:
    void Begin();
    void End();

    int32_t level;
    uint32_t streamSum = 0;
    BitWriter bits;
};

void Joiner::Add(const MPiece& piece, MStream& target) {
    if (piece.isFirst) Begin();
    if (piece.bitCount > 0) {
        bits.Append(piece.packed, piece.bitCount);
        streamSum = std::rotl(streamSum, 1) ^ piece.checksum;
    }
    if (piece.isLast) End();
    bits.WriteTo(target);
}

void Joiner::Begin() {
    streamSum = 0;
    for (const char character : {'B', 'Z', 'h'}) bits.Append(static_cast<uint8_t>(character), 8);
    bits.Append('0' + static_cast<uint64_t>(level), 8);
}

void Joiner::End() {
    bits.Append(EndMagic, 48);
    bits.Append(streamSum, 32);
    bits.Pad();
}

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
        if (GetBits(stream, end, MagicBits) == EndMagic &&
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
    return std::make_unique<BlockMeter>(level);
}

std::unique_ptr<MPieceJoiner> MBzip2Pieces::MakeJoiner() const {
    return std::make_unique<Joiner>(level);
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
