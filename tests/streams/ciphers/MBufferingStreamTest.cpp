#include "streams/ciphers/MBufferingStream.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

const std::string NotInitialized = "102: Buffering stream has not been initialized.";

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

std::string ReadAll(MStream& stream, int32_t piece) {
    std::string all;
    std::string bytes(static_cast<size_t>(piece), 0);
    int32_t count;
    do {
        count = stream.Read(bytes.data(), piece);
        all.append(bytes, 0, static_cast<size_t>(count));
    } while (count == piece);
    return all;
}

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
        EXPECT_EQ(ReadAll(stream, piece), std::string("abcdefg\0\0xyz", 12));
        EXPECT_TRUE(stream.IsEnd());
    }
}

/// Lets blocks of capitals pass as they are, and of the others encodes what counts.
class CapitalsPass : public MBufferingStream::BlockModificationProcessor {
public:
    bool BeforeEncode(uint8_t* block, int32_t& size) override { return !IsCapital(block[0]) && size == 3; }
    int32_t AfterEncode(uint8_t* /*block*/) override { return 4; }
    bool BeforeDecode(uint8_t* block, int32_t& size) override {
        sizes += std::to_string(size) + " ";
        return block[0] == '<';
    }
    int32_t AfterDecode(uint8_t* /*block*/) override { return 2; }

    std::string sizes;

private:
    static bool IsCapital(uint8_t byte) { return byte >= 'A' && byte <= 'Z'; }
};

TEST(MBufferingStream, TheModificationDecidesWhatIsCodedAndHowMuchOfItCounts) {
    MMemoryStream target;
    Bracketing stream;
    stream.SetModification(new CapitalsPass);
    stream.Open(&target, true);
    stream.Write("abcABCde", 8);
    stream.FinishBlock();
    EXPECT_EQ(MBytesOf(target), "<cbaABCde");

    auto* modification = new CapitalsPass;
    stream.SetModification(modification);
    MMemoryStream source("<cba>HELLO<fed>XY", 17);
    stream.Open(&source, false);
    // What is not decoded may be longer than a plain block.
    EXPECT_EQ(ReadAll(stream, 4), "abHELLOdeXY");
    EXPECT_EQ(modification->sizes, "5 5 5 2 ");
}

TEST(MBufferingStream, ASourceMayGiveAByteAtATime) {
    MMemoryStream source("<cba><fed>", 10);
    MTricklingStream slow(&source);
    Bracketing stream;
    stream.Open(&slow, false);
    EXPECT_FALSE(stream.IsEnd());
    EXPECT_EQ(ReadAll(stream, 100), "abcdef");
}

TEST(MBufferingStream, AShortEncodedBlockIsFilledWithZerosAndHoldsNothingOfTheOneBefore) {
    MMemoryStream source("<cba><z", 7);
    Bracketing stream;
    stream.Open(&source, false);
    EXPECT_EQ(ReadAll(stream, 100), std::string("abc\0\0z", 6));
}

TEST(MBufferingStream, ChainingWorksOnTheSmallerOfTheTwoBlocks) {
    MMemoryStream target;
    Bracketing stream;
    stream.SetModification(new MBufferingStream::CBCBlockModification);
    stream.Open(&target, true);
    stream.Write("abcdefgh", 8);
    stream.FinishBlock();
    // The second block meets "<cb" and is turned round; the tail meets "de".
    const std::string second = {'<', 'f' ^ 'b', 'e' ^ 'c', 'd' ^ '<', '>'};
    const std::string tail = {'g' ^ 'd', 'h' ^ 'e'};
    EXPECT_EQ(MBytesOf(target), "<cba>" + second + tail);
    target.Rewind();
    stream.Open(&target, false);
    EXPECT_EQ(ReadAll(stream, 3), "abcdefgh");

    // A tail that is longer than what is saved: no byte is touched beyond it.
    MMemoryStream source("1234", 4);
    stream.Open(&source, false);
    EXPECT_EQ(ReadAll(stream, 3), "1234");
}

TEST(MBufferingStream, NeedsBlockSizesASourceAndTheRightDirection) {
    MMemoryStream memory;
    char byte = 'x';
    for (const auto& [inputSize, outputSize] : {std::pair(0, 5), std::pair(3, 0), std::pair(-1, -1)}) {
        Bracketing bare(inputSize, outputSize);
        bare.Open(&memory, true);
        EXPECT_EQ(FailureOf([&] { bare.Write(&byte, 1); }), NotInitialized);
        EXPECT_EQ(FailureOf([&] { bare.FinishBlock(); }), NotInitialized);
        bare.Open(&memory, false);
        EXPECT_EQ(FailureOf([&] { bare.Read(&byte, 1); }), NotInitialized);
    }
    Bracketing stream;
    EXPECT_FALSE(stream.IsOpen());
    EXPECT_EQ(FailureOf([&] { stream.Write(&byte, 1); }), NotInitialized);
    stream.Open(&memory, true);
    EXPECT_EQ(stream.GetSubStream(), &memory);
    EXPECT_EQ(FailureOf([&] { stream.Read(&byte, 1); }),
              "1: Service \"read from stream\" is not implemented.");
    stream.Open(&memory, false);
    EXPECT_EQ(FailureOf([&] { stream.Write(&byte, 1); }),
              "1: Service \"write to stream\" is not implemented.");
}

TEST(MBufferingStream, AFailureOfTheSourceLosesOnlyTheBlockThatMetIt) {
    MMemoryStream target;
    MFailingStream full(&target, 7);
    Bracketing stream;
    stream.Open(&full, true);
    EXPECT_EQ(FailureOf([&] { stream.Write("abcdef", 6); }), "100: Injected failure.");
    EXPECT_EQ(FailureOf([&] { stream.FinishBlock(); }), "none");
    EXPECT_EQ(MBytesOf(target), "<cba>");
}

}  // namespace
