#include "streams/basic/MHexaStream.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/basic/MSizeStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

std::string ReadAll(MStream& stream) {
    MMemoryStream target;
    stream.CopyAllTo(target);
    return std::string(target.GetBuffer().Get(), static_cast<size_t>(target.GetSize()));
}

TEST(MSizeStream, ShowsOnlyItsPartOfTheSource) {
    MMemoryStream source("0123456789", 10);
    source.Seek(3, MSeekOrigin::Begin);
    MSizeStream window(&source, 4, true, false);
    EXPECT_EQ(ReadAll(window), "3456");
    EXPECT_TRUE(window.IsEnd());
    window.Seek(-1, MSeekOrigin::End);
    EXPECT_EQ(ReadAll(window), "6");
    window.Seek(-100, MSeekOrigin::Current);
    EXPECT_EQ(window.GetPosition(), 0);
    window.Seek(100, MSeekOrigin::Begin);
    EXPECT_EQ(window.GetPosition(), 4);
    EXPECT_EQ(source.GetPosition(), 7);
    EXPECT_EQ(FailureOf([&] { window.Seek(0, static_cast<MSeekOrigin>(-1)); }), "2: Invalid seek origin.");
}

TEST(MSizeStream, AnUnseekableWindowOnlyCounts) {
    MMemoryStream source("0123456789", 10);
    source.Seek(8, MSeekOrigin::Begin);
    MSizeStream window(&source, 4, false, false);
    EXPECT_EQ(ReadAll(window), "89");
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
    EXPECT_EQ(std::string(source.GetBuffer().Get(), static_cast<size_t>(source.GetSize())), "abcd");
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

    // A source that cannot tell its position makes the window fail, and is not lost with it.
    struct Positionless : Counted {
        using Counted::Counted;
        int64_t GetPosition() override { MRaise(MExceptionGeneral, "no position"); }
    };
    EXPECT_EQ(FailureOf([&] { MSizeStream window(new Positionless(deleted), 1, true, true); }),
              "0: no position");
    EXPECT_EQ(deleted, 2);
    EXPECT_FALSE(MSizeStream().IsOpen());
}

TEST(MHexaStream, BytesBecomeDigitsAndBack) {
    std::string bytes;
    for (int i = 0; i < 300; ++i) bytes += static_cast<char>(i);
    MMemoryStream digits;
    MHexaStream hexa(&digits);
    hexa.Write(bytes.data(), 300);
    EXPECT_EQ(std::string(digits.GetBuffer().Get(), 8), "00010203");
    EXPECT_EQ(digits.GetSize(), 600);
    EXPECT_EQ(hexa.GetSize(), 300);
    // A seek counts digits.
    hexa.Seek(4, MSeekOrigin::Begin);
    EXPECT_EQ(hexa.GetPosition(), 2);
    EXPECT_EQ(ReadAll(hexa), bytes.substr(2));
}

TEST(MHexaStream, RefusesWhatIsNoDigitAndLeavesHalfAByteOut) {
    MMemoryStream digits("4a4G", 4);
    MHexaStream hexa(&digits);
    EXPECT_EQ(hexa.ReadInt8(), 0x4A);
    EXPECT_EQ(FailureOf([&] { (void)hexa.ReadInt8(); }), "0: Invalid character to be converted to a number.");

    MMemoryStream odd("4a4", 3);
    MHexaStream half(&odd);
    char block[4];
    EXPECT_EQ(half.Read(block, 4), 1);
}

TEST(MSizeStream, AFailureOfTheSourceComesThrough) {
    MMemoryStream source("0123456789", 10);
    MFailingStream failing(&source, 4);
    MSizeStream window(&failing, 10, true, false);
    char block[4];
    EXPECT_EQ(window.Read(block, 4), 4);
    EXPECT_EQ(FailureOf([&] { window.Read(block, 1); }), "100: Injected failure.");
    EXPECT_EQ(window.GetPosition(), 4);
}

}  // namespace
