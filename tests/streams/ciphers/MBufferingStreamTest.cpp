#include "streams/ciphers/MBufferingStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <algorithm>

namespace {

/// A block of three bytes becomes one of five: '<', the bytes backwards, '>'.
class Bracketing : public MBufferingStream {
public:
    Bracketing() : Bracketing(PlainSize, EncodedSize) {}
    Bracketing(int32_t inputSize, int32_t outputSize) { SetBlockSizes(inputSize, outputSize); }

    void EncodeBlock(const void* input, void* output) override {
        auto* bytes = static_cast<char*>(output);
        std::reverse_copy(static_cast<const char*>(input), static_cast<const char*>(input) + PlainSize,
                          bytes + 1);
        bytes[0] = '<';
        bytes[EncodedSize - 1] = '>';
    }
    void DecodeBlock(const void* input, void* output) override {
        const auto* bytes = static_cast<const char*>(input);
        EXPECT_EQ(bytes[0], '<');
        std::reverse_copy(bytes + 1, bytes + 1 + PlainSize, static_cast<char*>(output));
    }

private:
    static constexpr int32_t PlainSize = 3;
    static constexpr int32_t EncodedSize = 5;
};

TEST(MBufferingStream, CutsIntoBlocksAndFinishesTheLastWithZeros) {
    for (const int32_t piece : {1, 2, 3, 7}) {
        MMemoryStream target;
        Bracketing stream;
        stream.Open(&target, true);
        const std::string text = "abcdefg";
        for (int32_t i = 0; i < 7; i += piece) stream.Write(text.data() + i, std::min(piece, 7 - i));
        EXPECT_EQ(MBytesOf(target), "<cba><fed>");
        stream.FinishBlock();
        stream.FinishBlock();
        stream.Write("xyz", 3);
        EXPECT_EQ(MBytesOf(target), std::string("<cba><fed><\0\0g><zyx>", 20));

        target.Rewind();
        stream.Open(&target, false);
        EXPECT_EQ(MReadAll(stream, piece), std::string("abcdefg\0\0xyz", 12));
        EXPECT_TRUE(stream.IsEnd());
    }
}

// A short encoded block is filled with zeros, not with what the one before has left.
TEST(MBufferingStream, ASourceMayGiveAByteAtATimeAndBreakInTheMiddle) {
    for (const auto& [encoded, plain] :
         {std::pair("<cba><fed>", std::string("abcdef")), {"<cba><z", std::string("abc\0\0z", 6)}}) {
        const std::string bytes = encoded;
        MMemoryStream source = MStreamOf(bytes);
        MTricklingStream slow(&source);
        MBreakingStream breaking(&slow);
        Bracketing stream;
        stream.Open(&breaking, false);
        EXPECT_FALSE(stream.IsEnd());
        EXPECT_EQ(MReadAll(stream), plain);
        EXPECT_TRUE(stream.IsEnd());
    }
}

TEST(MBufferingStream, ChainingWorksOnTheSmallerOfTheTwoBlocks) {
    MMemoryStream target;
    Bracketing stream;
    stream.SetModification(new MBufferingStream::CBCBlockModification);
    stream.Open(&target, true);
    stream.Write("abcdefgh", 8);
    stream.FinishBlock();
    // The second block meets "<cb" and is turned round; the tail meets "de".
    const char rest[] = {'<', 'f' ^ 'b', 'e' ^ 'c', 'd' ^ '<', '>', 'g' ^ 'd', 'h' ^ 'e'};
    EXPECT_EQ(MBytesOf(target), "<cba>" + std::string(rest, sizeof(rest)));
    target.Rewind();
    stream.Open(&target, false);
    EXPECT_EQ(MReadAll(stream), "abcdefgh");
    // A tail that is longer than what is saved: no byte is touched beyond it.
    MMemoryStream source("1234", 4);
    stream.Open(&source, false);
    EXPECT_EQ(MReadAll(stream), "1234");
}

TEST(MBufferingStream, NeedsBlockSizesASourceAndTheRightDirection) {
    const std::string notInitialized = "102: Buffering stream has not been initialized.";
    MMemoryStream memory;
    char byte = 'x';
    for (const auto& [inputSize, outputSize] : {std::pair(0, 5), {3, 0}, {-1, -1}, {3, 5}}) {
        Bracketing bare(inputSize, outputSize);
        if (inputSize < 3 || outputSize < 5) bare.Open(&memory, true);
        EXPECT_EQ(FailureOf([&] { bare.Write(&byte, 1); }), notInitialized);
        EXPECT_EQ(FailureOf([&] { bare.FinishBlock(); }), notInitialized);
        EXPECT_EQ(FailureOf([&] { bare.Read(&byte, 1); }), notInitialized);
    }
    Bracketing stream;
    stream.Open(&memory, true);
    EXPECT_EQ(FailureOf([&] { stream.Read(&byte, 1); }),
              "1: Service \"read from stream\" is not implemented.");
    stream.Open(&memory, false);
    for (const bool isFinishing : {false, true})
        EXPECT_EQ(FailureOf([&] { isFinishing ? stream.FinishBlock() : stream.Write(&byte, 1); }),
                  "1: Service \"write to stream\" is not implemented.");
}

}  // namespace
