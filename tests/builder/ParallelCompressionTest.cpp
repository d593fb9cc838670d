#include "builder/compression/MBzip2Pieces.h"
#include "builder/compression/MParallelCompressor.h"
#include "builder/compression/MPlainPieces.h"
#include "builder/compression/MZLibPieces.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <bzlib.h>
#include <zlib.h>

#include <random>
#include <string>
#include <vector>

namespace {

/// Runs of the lengths at which a block's run coding changes, of two bytes in turn and of one.
std::string MakeRuns(size_t size) {
    constexpr size_t lengths[] = {1,   2,   3,   4,   5,   6,   253, 254, 255, 256,
                                  257, 258, 259, 260, 509, 510, 511, 514, 1020};
    std::mt19937 random(7);
    std::string bytes;
    while (bytes.size() < size) bytes.append(lengths[random() % std::size(lengths)], "ab\0"[random() % 3]);
    return bytes;
}

/// Data that fill a block of the lowest level to within a few bytes, then a run across its end.
std::string MakeFullBlock(size_t noise, size_t run) {
    std::string bytes = MTestNoise(noise, 11);
    // No byte equals the one before it, so each takes one place.
    for (size_t i = 1; i < noise; ++i)
        if (bytes[i] == bytes[i - 1]) bytes[i] = static_cast<char>(bytes[i] + 1);
    return bytes + std::string(run, 'r') + "tail";
}

std::vector<std::string> MakeItems() {
    std::vector<std::string> items{"", "x", "", "aaaa"};
    // The costliest runs: each takes a place more than it has bytes.
    for (std::string& quads = items.emplace_back(); quads.size() < 200000;) quads += "aaaabbbb";
    items.insert(items.end(), {MakeRuns(400000), MTestNoise(350000, 2), std::string(2500000, 'z')});
    constexpr size_t blockSize = 100000 - 19;
    for (const size_t left : {0u, 1u, 3u, 4u, 5u})
        for (const size_t run : {4u, 5u, 256u, 259u}) items.push_back(MakeFullBlock(blockSize - left, run));
    items.emplace_back(MZLibPieces::PieceSize, 'p');
    items.push_back(MTestNoise(MZLibPieces::PieceSize + 1, 3));
    items.push_back(MTestNoise(MPlainPieces::PieceSize, 4) + MakeRuns(100000));
    return items;
}

struct Packed {
    std::string bytes;
    std::vector<int64_t> starts;
};

Packed Compress(const MPieceCodec& codec, int32_t threads, const std::vector<std::string>& items) {
    MMemoryStream target;
    int64_t heard = 0;
    MParallelCompressor compressor(codec, threads, target, [&](int64_t bytes) { heard += bytes; });
    int64_t total = 0;
    for (const std::string& item : items) {
        MMemoryStream source = MStreamOf(item);
        compressor.AddItem(source, source.GetSize(), "item");
        total += source.GetSize();
    }
    compressor.Finish();
    EXPECT_EQ(heard, total);
    return {MBytesOf(target), compressor.GetStarts()};
}

/// Decodes one stream that takes all of `bytes`, by the bare library.
std::string DecodeBzip2(std::string bytes, size_t size) {
    std::string plain(size + 1, 0);
    auto room = static_cast<unsigned>(plain.size());
    auto count = static_cast<unsigned>(bytes.size());
    EXPECT_EQ(BZ2_bzBuffToBuffDecompress(plain.data(), &room, bytes.data(), count - 1, 0, 0),
              BZ_UNEXPECTED_EOF);
    room = static_cast<unsigned>(plain.size());
    EXPECT_EQ(BZ2_bzBuffToBuffDecompress(plain.data(), &room, bytes.data(), count, 0, 0), BZ_OK);
    plain.resize(room);
    return plain;
}

std::string DecodeZLib(std::string bytes, size_t size) {
    std::string plain(size + 1, 0);
    auto room = static_cast<uLongf>(plain.size());
    auto count = static_cast<uLong>(bytes.size());
    EXPECT_EQ(uncompress2(reinterpret_cast<Bytef*>(plain.data()), &room,
                          reinterpret_cast<const Bytef*>(bytes.data()), &count),
              Z_OK);
    EXPECT_EQ(count, bytes.size());
    plain.resize(room);
    return plain;
}

/// Compresses by several numbers of threads and decodes each item.
void CheckCodec(const MPieceCodec& codec, std::string (*decode)(std::string, size_t)) {
    const std::vector<std::string> items = MakeItems();
    const Packed packed = Compress(codec, 1, items);
    for (const int32_t threads : {2, 7}) {
        const Packed other = Compress(codec, threads, items);
        EXPECT_TRUE(other.bytes == packed.bytes) << threads << " threads give other bytes";
        EXPECT_EQ(other.starts, packed.starts);
    }
    ASSERT_EQ(packed.starts.size(), items.size());
    for (size_t i = 0; i < items.size(); ++i) {
        const auto start = static_cast<size_t>(packed.starts[i]);
        const size_t end =
            i + 1 < items.size() ? static_cast<size_t>(packed.starts[i + 1]) : packed.bytes.size();
        EXPECT_TRUE(decode(packed.bytes.substr(start, end - start), items[i].size()) == items[i])
            << "item " << i;
    }
}

class FailingCodec final : public MPieceCodec {
public:
    [[nodiscard]] uint32_t GetFlags() const override { return 0; }
    [[nodiscard]] std::unique_ptr<MPieceMeter> MakeMeter() const override { return plain.MakeMeter(); }
    [[nodiscard]] std::unique_ptr<MPieceJoiner> MakeJoiner() const override { return plain.MakeJoiner(); }
    void Compress(MPiece& piece) const override {
        if (piece.isLast) MRaise(MExceptionGeneral, "Data could not be compressed.");
    }

private:
    MPlainPieces plain;
};

}  // namespace

TEST(ParallelCompressionTest, StreamsAreWholeAndIndependentOfThreads) {
    for (const int32_t level : {1, 9}) {
        CheckCodec(MBzip2Pieces(level), DecodeBzip2);
        CheckCodec(MZLibPieces(level), DecodeZLib);
    }
    CheckCodec(MPlainPieces(), [](std::string bytes, size_t /*size*/) { return bytes; });
}

TEST(ParallelCompressionTest, PiecesCostHardlyAnySize) {
    const std::string item = MakeRuns(3000000) + MTestNoise(1000000, 5);
    const size_t whole = MDeflate(item).size();
    EXPECT_LT(Compress(MZLibPieces(9), 2, {item}).bytes.size(), whole + whole / 200);
}

TEST(ParallelCompressionTest, SourceThatChangesIsRefused) {
    const MZLibPieces codec(6);
    const std::string item = MTestNoise(1000, 6);
    for (const int64_t size : {999, 1001}) {
        MMemoryStream source = MStreamOf(item);
        MMemoryStream target;
        MParallelCompressor compressor(codec, 2, target);
        EXPECT_EQ(FailureOf([&] { compressor.AddItem(source, size, "a.dll"); }),
                  "0: \"a.dll\" changed while it was being packed. Pack again when nothing writes to it.");
    }
}

TEST(ParallelCompressionTest, FailuresOfThreadsAndStreamsComeOut) {
    const std::string item = MTestNoise(9 << 20, 8);
    const auto run = [&](const MPieceCodec& codec, int64_t readable, int64_t writable) {
        MMemoryStream memory = MStreamOf(item);
        MFailingStream source(&memory, readable);
        MMemoryStream written;
        MFailingStream target(&written, writable);
        return FailureOf([&] {
            MParallelCompressor compressor(codec, 3, target);
            compressor.AddItem(source, memory.GetSize(), "item");
            compressor.Finish();
        });
    };
    constexpr int64_t Plenty = 1 << 30;
    EXPECT_EQ(run(FailingCodec(), Plenty, Plenty), "0: Data could not be compressed.");
    EXPECT_EQ(run(MZLibPieces(1), 5 << 20, Plenty), "100: Injected failure.");
    EXPECT_EQ(run(MZLibPieces(1), Plenty, 100000), "100: Injected failure.");
}
