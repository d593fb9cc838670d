#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

/// What has been written, as hexadecimal digits.
std::string Hex(MMemoryStream& stream) {
    return Text(stream.LoadHexText());
}

TEST(MStreamTypedForms, IntegersAreLittleEndian) {
    MMemoryStream stream;
    stream.WriteInt8(-2);
    stream.WriteInt16(0x0102);
    stream.WriteInt32(0x03040506);
    stream.WriteInt64(-2);
    stream.WriteString(Wide(u"\u00E9z"));
    stream.WriteLine("ab");
    // Multi-byte text loses its tail.
    EXPECT_EQ(Hex(stream), "FE020106050403FEFFFFFFFFFFFFFF"
                           "C3A9"
                           "61620A");

    stream.Rewind();
    EXPECT_EQ(stream.ReadInt8(), -2);
    EXPECT_EQ(stream.ReadInt16(), 0x0102);
    EXPECT_EQ(stream.ReadInt32(), 0x03040506);
    EXPECT_EQ(stream.ReadInt64(), -2);
}

TEST(MStreamTypedForms, ReadingBeyondTheEndFails) {
    MMemoryStream stream("abc", 3);
    char block[10];
    EXPECT_EQ(FailureOf([&] { (void)stream.ReadInt32(); }), "100: Could not read required data from stream.");
    EXPECT_EQ(FailureOf([&] { stream.ReadBlock10(block); }),
              "100: Could not read required data from stream.");
    EXPECT_EQ(FailureOf([&] { (void)stream.LoadRequiredLine(); }), "100: Could not load a line from stream.");
}

TEST(MStreamTypedForms, WireStringIsCountedUTF8CutAt65535Bytes) {
    MMemoryStream stream;
    stream.WriteWireString(Wide(u"h\u00E9"));
    EXPECT_EQ(Hex(stream), "030068C3A9");
    stream.WriteWireString(Heap(std::string(70000, 'x').c_str()));
    stream.Rewind();
    EXPECT_EQ(stream.ReadWireString(), Wide(u"h\u00E9"));
    EXPECT_EQ(stream.ReadWireString().GetLength(), 65535);
    EXPECT_TRUE(stream.IsEnd());
}

TEST(MStreamTypedForms, HexadecimalTextGoesBothWays) {
    std::string digits;
    for (int i = 0; i < 300; ++i) digits += "A5";
    MMemoryStream stream;
    stream.StoreHexText("00ff4a");
    stream.StoreHexText(Heap((digits + "B").c_str()));
    EXPECT_EQ(Hex(stream), "00FF4A" + digits);
    EXPECT_EQ(FailureOf([&] { stream.StoreHexText("4G"); }),
              "0: Invalid character to be converted to a number.");
}

TEST(MStreamTypedForms, LoadTextTurnsZerosIntoLinesAndDropsControls) {
    std::string bytes("a\0b\r\x01\tc", 7);
    bytes.append(400, 'x');
    MMemoryStream stream = MStreamOf(bytes);
    stream.Seek(3, MSeekOrigin::Begin);
    EXPECT_EQ(Text(stream.LoadText(false)), "\tc" + std::string(400, 'x'));
    EXPECT_EQ(Text(stream.LoadText(true)), "a\nb\tc" + std::string(400, 'x'));
}

TEST(MStreamTypedForms, CopyingTakesEveryByteInEitherForm) {
    for (const size_t size : {0, 1, 4095, 4096, 4097, 1 << 20, (1 << 20) + 1}) {
        const std::string bytes = MTestNoise(size);
        MMemoryStream source = MStreamOf(bytes);
        MBreakingStream breaking(&source);
        MMemoryStream small, large;
        breaking.CopyAllTo(small);
        source.Rewind();
        breaking.CopyAllToInLargePieces(large);
        EXPECT_TRUE(MBytesOf(small) == bytes && MBytesOf(large) == bytes) << size;
    }
}

TEST(MStreamTypedForms, ServicesThatAMediumLacksSayWhich) {
    MStream stream;
    char byte;
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { stream.GetSubStream(); }, "return substream"},
        {[&] { stream.WriteFill(1); }, "write to stream"},
        {[&] { stream.Read(&byte, 1); }, "read from stream"},
        {[&] { stream.Seek(-1, MSeekOrigin::Current); }, "backward seek in a stream"},
        {[&] { stream.GetPosition(); }, "get stream position"},
        {[&] { stream.Flush(); }, "flush stream"},
        {[&] { stream.IsEnd(); }, "end of stream test"},
        {[&] { stream.Truncate(); }, "truncate stream"},
        {[&] { stream.GetSize(); }, "stream size detection"},
    };
    for (const auto& [call, service] : cases)
        EXPECT_EQ(FailureOf(call), "1: Service \"" + service + "\" is not implemented.");
    EXPECT_EQ(FailureOf([&] { stream.Seek(0, static_cast<MSeekOrigin>(3)); }), "2: Invalid seek origin.");
}

/// With the seek of the base class.
class ForwardStream : public MBreakingStream {
public:
    using MBreakingStream::MBreakingStream;
    void Seek(int64_t offset, MSeekOrigin origin) override { MStream::Seek(offset, origin); }
};

TEST(MStreamTypedForms, BaseSeekReadsForwardAndStopsAtTheEnd) {
    const std::string bytes(5000, 'x');
    MMemoryStream memory = MStreamOf(bytes);
    ForwardStream stream(&memory);
    const struct {
        int64_t offset;
        MSeekOrigin origin;
        int64_t position;
    } cases[] = {{3000, MSeekOrigin::Begin, 3000},
                 {500, MSeekOrigin::Current, 3500},
                 {-100, MSeekOrigin::End, 4900},
                 {1 << 20, MSeekOrigin::Begin, 5000}};
    for (const auto& [offset, origin, position] : cases) {
        stream.Seek(offset, origin);
        EXPECT_EQ(stream.GetPosition(), position);
    }
    EXPECT_EQ(FailureOf([&] { stream.Rewind(); }),
              "1: Service \"backward seek in a stream\" is not implemented.");
}

}  // namespace
