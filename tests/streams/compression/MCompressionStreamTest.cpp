#include "streams/compression/MBZIPStream.h"
#include "streams/compression/MZLibStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

namespace {

const std::string InvalidContent = "100: Source compressed stream has invalid content.";
const std::string SourceEnded = "0: Source compressed stream has invalid content.";

/// Compressible, but not so much that a few bytes hold it all.
std::string MakeText(size_t size) {
    std::string text;
    for (uint32_t i = 1; text.size() < size; i = i * 1664525 + 1013904223)
        text += std::to_string(i >> 16) + " words ";
    text.resize(size);
    return text;
}

/// The two formats behind one interface: what the bare library packs, our reader, and how it tells that its
/// source has ended.
struct ZLib {
    static std::string Pack(const std::string& text) { return MDeflate(text); }
    explicit ZLib(MStream& source) { reader.Open(&source, false); }

    static inline const std::string CutOff = SourceEnded;
    static constexpr size_t SpareBytes = 4;  ///< without the check sum at the end all of the text is there
    MZLibStream reader;
};

struct Bzip2 {
    static std::string Pack(const std::string& text) { return MBzip2(text); }
    explicit Bzip2(MStream& source) { reader.Open(&source); }

    static inline const std::string CutOff = InvalidContent;
    static constexpr size_t SpareBytes = 0;
    MBZIPStream reader;
};

/// Reads as many bytes of a compressed text, in pieces; a failure is given instead of the text.
template <class Format>
std::string Unpack(MStream& source, size_t size, size_t piece = 1 << 20) {
    std::string text(size, 0);
    const std::string failure = FailureOf([&] {
        Format format(source);
        for (size_t done = 0; done < size; done += piece) {
            EXPECT_EQ(format.reader.GetPosition(), static_cast<int64_t>(done));
            format.reader.ReadRequired(&text[done], static_cast<int32_t>(std::min(piece, size - done)));
        }
    });
    return failure == "none" ? text : failure;
}

template <class Format>
class MCompressionStream : public testing::Test {};

using Formats = testing::Types<ZLib, Bzip2>;
TYPED_TEST_SUITE(MCompressionStream, Formats, );

}  // namespace

TYPED_TEST(MCompressionStream, ReadsWhatTheLibraryPacksInPiecesOfAnySize) {
    for (const auto& [size, piece] :
         {std::pair(1u, 1u), {20000u, 1u}, {300000u, 4095u}, {300000u, 1u << 20}}) {
        const std::string text = MakeText(size);
        const std::string packed = TypeParam::Pack(text);
        MMemoryStream source = MStreamOf(packed);
        EXPECT_TRUE(Unpack<TypeParam>(source, size, piece) == text) << size << " by " << piece;
        source.Rewind();
        MTricklingStream slow(&source);
        EXPECT_TRUE(Unpack<TypeParam>(slow, size, piece) == text) << size << " by " << piece;
    }
}

// A source that gave -1 was taken for one of 4 GiB.
TYPED_TEST(MCompressionStream, AStreamThatIsCutOrBreaksAnywhereFailsAndNeverHangs) {
    const std::string text = MakeText(500);
    const std::string packed = TypeParam::Pack(text);
    for (size_t length = 0; length + TypeParam::SpareBytes < packed.size(); ++length) {
        const std::string cut = packed.substr(0, length);
        MMemoryStream source = MStreamOf(cut);
        EXPECT_EQ(Unpack<TypeParam>(source, text.size() + 1), TypeParam::CutOff) << length;
        source.Rewind();
        MBreakingStream breaking(&source);
        EXPECT_EQ(Unpack<TypeParam>(breaking, text.size() + 1), TypeParam::CutOff) << length;
    }
}

TEST(MZLibStream, WritesWhatItReadsAtEveryLevel) {
    const std::string text = MakeText(100000);
    for (const int32_t level : {-5, 0, 1, 9, 50}) {
        MMemoryStream target;
        MZLibStream zlib;
        zlib.Open(&target, true, level);
        for (size_t i = 0; i < text.size(); i += 1000) zlib.Write(text.data() + i, 1000);
        EXPECT_EQ(zlib.GetPosition(), 100000);
        zlib.Finish();
        zlib.Close();
        EXPECT_EQ(FailureOf([&] { zlib.Close(); }), "none");
        EXPECT_EQ(target.GetSize() < 100000, level > 0) << level;
        target.Rewind();
        zlib.Open(&target, false);
        std::string read(text.size(), 0);
        zlib.ReadRequired(read.data(), 100000);
        EXPECT_TRUE(read == text) << level;
    }
}

TEST(MZLibStream, AForgottenFinishShowsWhenTheStreamGoes) {
    MMemoryStream target;
    const std::string unfinished = "100: ZLIB stream has not been terminated.";
    EXPECT_EQ(FailureOf([&] {
                  MZLibStream writer;
                  writer.Open(&target, true);
              }),
              unfinished);
    MZLibStream writer;
    writer.Open(&target, true);
    EXPECT_EQ(FailureOf([&] { writer.Close(); }), unfinished);
    EXPECT_EQ(FailureOf([&] { writer.Close(); }), "none");

    // A failure that is already on its way is the one to hear of.
    EXPECT_EQ(FailureOf([&] {
                  MFailingStream full(&target, 10);
                  MZLibStream unwound;
                  unwound.Open(&full, true);
                  const std::string text = MTestNoise(100000);
                  unwound.Write(text.data(), 100000);
              }),
              "100: Injected failure.");
}

TEST(MZLibStream, BehindTheEndItFailsAndItDoesNotWriteWhatItReads) {
    const std::string deflated = MDeflate("text");
    MMemoryStream source = MStreamOf(deflated);
    MZLibStream zlib;
    zlib.Open(&source, false);
    char block[20];
    EXPECT_EQ(zlib.Read(block, 20), 4);
    EXPECT_EQ(FailureOf([&] { zlib.Read(block, 1); }), SourceEnded);
    EXPECT_TRUE(zlib.IsEnd());
    EXPECT_EQ(FailureOf([&] { zlib.Write("x", 1); }), "100: Data could not be compressed.");
    EXPECT_EQ(FailureOf([&] { zlib.Finish(); }), "0: Data could not be compressed.");
    zlib.Open(&source, false);
    EXPECT_FALSE(zlib.IsComplete());
}

TEST(MBZIPStream, BehindTheEndThereIsNothingAndItDoesNotWrite) {
    const std::string bzipped = MBzip2("text");
    MMemoryStream source = MStreamOf(bzipped);
    MBZIPStream bzip;
    char byte;
    EXPECT_EQ(FailureOf([&] { bzip.Read(&byte, 1); }), InvalidContent);
    bzip.Open(&source);
    bzip.Seek(1, MSeekOrigin::Begin);
    EXPECT_FALSE(bzip.IsEnd());
    EXPECT_EQ(MReadAll(bzip), "ext");
    EXPECT_TRUE(bzip.IsEnd());
    EXPECT_EQ(bzip.GetPosition(), 4);
    EXPECT_EQ(FailureOf([&] { bzip.Write("x", 1); }), "100: Data could not be compressed.");
    EXPECT_EQ(FailureOf([&] { bzip.Finish(); }), "0: Data could not be compressed.");
    source.Rewind();
    bzip.Open(&source);
    EXPECT_EQ(MReadAll(bzip), "text");
}
