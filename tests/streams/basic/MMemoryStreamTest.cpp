#include "streams/basic/MHexaStream.h"
#include "streams/basic/MSizeStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

TEST(MMemoryStream, WritingLeavesWhatItWasGivenAlone) {
    const std::string memory = "abcd";
    MMemoryStream attached = MStreamOf(memory);
    MMemoryStream sharing(attached.GetBuffer());
    EXPECT_EQ(sharing.GetPointer(), memory.data());
    attached.Seek(1, MSeekOrigin::Begin);
    attached.Write("X", 1);
    EXPECT_EQ(memory, "abcd");
    EXPECT_EQ(MBytesOf(sharing), "abcd");
    EXPECT_EQ(MBytesOf(attached), "aXcd");
    EXPECT_EQ(*attached.GetPointer(), 'c');
}

TEST(MMemoryStream, SeekingIsClampedToTheData) {
    MMemoryStream stream("abcdef", 6);
    const struct {
        int64_t offset;
        MSeekOrigin origin;
        int64_t position;
    } cases[] = {
        {3, MSeekOrigin::Begin, 3},           {2, MSeekOrigin::Current, 5},     {-1, MSeekOrigin::End, 5},
        {99, MSeekOrigin::Begin, 6},          {-99, MSeekOrigin::Current, 0},   {1, MSeekOrigin::End, 6},
        {INT64_MAX, MSeekOrigin::Current, 6}, {INT64_MIN, MSeekOrigin::End, 0},
    };
    for (const auto& entry : cases) {
        stream.Seek(entry.offset, entry.origin);
        EXPECT_EQ(stream.GetPosition(), entry.position) << entry.offset;
    }
    EXPECT_EQ(FailureOf([&] { stream.Seek(0, static_cast<MSeekOrigin>(3)); }), "2: Invalid seek origin.");
}

TEST(MMemoryStream, SizesThatCannotBeAreRefused) {
    MMemoryStream stream;
    char byte = 0;
    EXPECT_EQ(FailureOf([&] { stream.Write(&byte, -1); }), "0: Trying to write a block of negative size.");
    EXPECT_EQ(FailureOf([&] { stream.Read(&byte, -1); }), "0: Trying to read a block of negative size.");
    // The sum of position and size does not fit 32 bits; nothing of it is touched.
    MMemoryStream full(&byte, INT32_MAX);
    full.SeekToEnd();
    EXPECT_EQ(FailureOf([&] { full.Write(&byte, 2); }), "0: Out of memory.");
}

TEST(MSizeStream, ShowsOnlyItsPartOfTheSource) {
    MMemoryStream source("0123456789", 10);
    source.Seek(3, MSeekOrigin::Begin);
    MSizeStream window(&source, 4, true, false);
    EXPECT_EQ(MReadAll(window), "3456");
    EXPECT_TRUE(window.IsEnd());
    window.Seek(-1, MSeekOrigin::End);
    EXPECT_EQ(MReadAll(window), "6");
    window.Seek(-100, MSeekOrigin::Current);
    EXPECT_EQ(window.GetPosition(), 0);
    window.Seek(100, MSeekOrigin::Begin);
    EXPECT_EQ(window.GetPosition(), 4);
    EXPECT_EQ(source.GetPosition(), 7);
    EXPECT_EQ(FailureOf([&] { window.Seek(0, static_cast<MSeekOrigin>(-1)); }), "2: Invalid seek origin.");
}

TEST(MSizeStream, AnUnseekableWindowOnlyCounts) {
    MMemoryStream source("01", 2);
    MSizeStream window(&source, 4, false, false);
    EXPECT_EQ(MReadAll(window), "01");
    EXPECT_EQ(window.GetPosition(), 2);
    EXPECT_FALSE(window.IsEnd());
    EXPECT_EQ(FailureOf([&] { window.Rewind(); }),
              "100: Seeking operation is forbidden for the size-stream.");
}

TEST(MSizeStream, WritesWhatFitsAndThenFails) {
    MMemoryStream source;
    MSizeStream window(&source, 4, true, false);
    window.Write("ab", 2);
    EXPECT_EQ(FailureOf([&] { window.Write("cdef", 4); }),
              "100: The stream cannot be written, because its size is out of range.");
    EXPECT_EQ(MBytesOf(source), "abcd");
    EXPECT_TRUE(window.IsEnd());
}

TEST(MSizeStream, DeletesItsSourceOnlyIfItOwnsIt) {
    struct Counted : MMemoryStream {
        explicit Counted(int& count) : count(count) {}
        ~Counted() override { ++count; }
        int& count;
    };
    int deleted = 0;
    Counted kept(deleted);
    { MSizeStream window(&kept, 0, true, false); }
    EXPECT_EQ(deleted, 0);
    { MSizeStream window(new Counted(deleted), 0, true, true); }
    EXPECT_EQ(deleted, 1);

    EXPECT_FALSE(MSizeStream().IsOpen());
}

TEST(MHexaStream, BytesBecomeDigitsAndBack) {
    const std::string bytes = "\x01\xAF" + MTestNoise(298);
    MMemoryStream digits;
    MHexaStream hexa(&digits);
    hexa.Write(bytes.data(), 300);
    EXPECT_EQ(MBytesOf(digits).substr(0, 4), "01AF");
    EXPECT_EQ(hexa.GetSize(), 300);
    // A seek counts digits.
    hexa.Seek(4, MSeekOrigin::Begin);
    EXPECT_EQ(hexa.GetPosition(), 2);
    EXPECT_EQ(MReadAll(hexa), bytes.substr(2));

    // Half a byte is left out.
    MMemoryStream odd("4a4", 3);
    MHexaStream half(&odd);
    EXPECT_EQ(MReadAll(half), "J");
    MMemoryStream wrong("4G", 2);
    MHexaStream refused(&wrong);
    EXPECT_EQ(FailureOf([&] { (void)MReadAll(refused); }),
              "0: Invalid character to be converted to a number.");
}

// A count below zero moved the window back, and let it show more than its bytes.
TEST(MSizeStream, AFailureOfTheSourceComesThroughAndMovesNothing) {
    struct Unseekable : MBreakingStream {
        using MBreakingStream::MBreakingStream;
        void Seek(int64_t /*offset*/, MSeekOrigin /*origin*/) override {
            MRaise(MExceptionGeneral, "no seek");
        }
    };
    char block[8];
    MMemoryStream source("0123", 4);
    Unseekable unseekable(&source);
    MSizeStream window(&unseekable, 10, true, false);
    EXPECT_EQ(window.Read(block, 8), 4);
    EXPECT_EQ(window.Read(block, 8), -1);
    EXPECT_EQ(FailureOf([&] { window.Seek(3, MSeekOrigin::Begin); }), "0: no seek");
    EXPECT_EQ(window.GetPosition(), 4);
}
