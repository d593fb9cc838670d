#include "streams/basic/MMemoryStream.h"
#include "tests/support/MTestText.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

/// What has been written, as hexadecimal digits.
std::string Hex(MMemoryStream& stream) {
    return Text(stream.LoadHexText());
}

MMemoryStream StreamOf(std::string_view bytes) {
    MMemoryStream stream;
    stream.Write(bytes.data(), static_cast<int32_t>(bytes.size()));
    stream.Rewind();
    return stream;
}

TEST(MStreamTypedForms, IntegersAreLittleEndian) {
    MMemoryStream stream;
    stream.WriteInt8(-2);
    stream.WriteInt16(0x0102);
    stream.WriteInt32(0x03040506);
    stream.WriteInt64(-2);
    EXPECT_EQ(Hex(stream), "FE020106050403FEFFFFFFFFFFFFFF");

    stream.Rewind();
    EXPECT_EQ(stream.ReadInt8(), -2);
    EXPECT_EQ(stream.ReadInt16(), 0x0102);
    EXPECT_EQ(stream.ReadInt32(), 0x03040506);
    EXPECT_EQ(stream.ReadInt64(), -2);
}

TEST(MStreamTypedForms, ReadingBeyondTheEndFails) {
    const std::string expected = "100: Could not read required data from stream.";
    MMemoryStream stream = StreamOf("abc");
    EXPECT_EQ(FailureOf([&] { (void)stream.ReadInt32(); }), expected);
    char block[10];
    EXPECT_EQ(FailureOf([&] { stream.ReadBlock10(block); }), expected);
    EXPECT_EQ(FailureOf([&] { (void)stream.ReadWireString(); }), expected);
    EXPECT_EQ(FailureOf([&] { (void)stream.LoadRequiredLine(); }), "100: Could not load a line from stream.");
}

TEST(MStreamTypedForms, WireStringIsCountedUTF8CutAt65535Bytes) {
    MMemoryStream stream;
    const MString text = MDecodeUTF8Exact("h\xC3\xA9");
    stream.WriteWireString(text);
    EXPECT_EQ(Hex(stream), "030068C3A9");
    stream.Rewind();
    EXPECT_TRUE(stream.ReadWireString().IsExactly(text));

    stream.Reset();
    MString longText;
    longText.Append(u'x', 70000);
    stream.WriteWireString(longText);
    EXPECT_EQ(stream.GetSize(), 2 + 65535);
    stream.Rewind();
    EXPECT_EQ(stream.ReadWireString().GetLength(), 65535);
}

TEST(MStreamTypedForms, WriteStringLosesTheTailOfMultiByteText) {
    MMemoryStream stream;
    stream.WriteString(MDecodeUTF8Exact("\xC3\xA9z"));
    EXPECT_EQ(Hex(stream), "C3A9");
    stream.Reset();
    stream.WriteLine("ab");
    EXPECT_EQ(Hex(stream), "61620A");
}

TEST(MStreamTypedForms, HexadecimalTextGoesBothWays) {
    MMemoryStream stream;
    stream.StoreHexText("00ff4aB");
    EXPECT_EQ(Hex(stream), "00FF4A");
    EXPECT_EQ(FailureOf([&] { stream.StoreHexText("4G"); }),
              "0: Invalid character to be converted to a number.");

    std::string digits;
    for (int i = 0; i < 300; ++i) digits += "A5";
    stream.Reset();
    stream.StoreHexText(MDecodeUTF8Exact(digits));
    EXPECT_EQ(Hex(stream), digits);
}

TEST(MStreamTypedForms, LoadTextTurnsZerosIntoLinesAndDropsControls) {
    std::string bytes("a\0b\r\x01\tc", 7);
    bytes.append(400, 'x');
    EXPECT_EQ(Text(StreamOf(bytes).LoadText(true)), "a\nb\tc" + std::string(400, 'x'));
    MMemoryStream stream = StreamOf("abc");
    (void)stream.ReadInt8();
    EXPECT_EQ(Text(stream.LoadText(false)), "bc");
}

TEST(MStreamTypedForms, CopyingTakesEveryByteInEitherForm) {
    for (const int32_t size : {0, 1, 4095, 4096, 4097, 1 << 20, (1 << 20) + 1}) {
        std::string bytes(static_cast<size_t>(size), 0);
        for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
        MMemoryStream source = StreamOf(bytes);
        MMemoryStream small, large;
        source.CopyAllTo(small);
        source.Rewind();
        source.CopyAllToInLargePieces(large);
        EXPECT_EQ(std::string(small.GetBuffer().Get(), static_cast<size_t>(small.GetSize())), bytes);
        EXPECT_EQ(std::string(large.GetBuffer().Get(), static_cast<size_t>(large.GetSize())), bytes);
    }
}

TEST(MStreamTypedForms, ServicesThatAMediumLacksSayWhich) {
    MStream stream;
    char byte;
    const struct {
        std::function<void()> call;
        const char* service;
    } cases[] = {
        {[&] { stream.GetSubStream(); }, "return substream"},
        {[&] { stream.Write(&byte, 1); }, "write to stream"},
        {[&] { stream.WriteFill(1); }, "write to stream"},
        {[&] { stream.Read(&byte, 1); }, "read from stream"},
        {[&] { stream.Seek(-1, MSeekOrigin::Current); }, "backward seek in a stream"},
        {[&] { stream.GetPosition(); }, "get stream position"},
        {[&] { stream.Flush(); }, "flush stream"},
        {[&] { stream.IsEnd(); }, "end of stream test"},
        {[&] { stream.Truncate(); }, "truncate stream"},
        {[&] { stream.GetSize(); }, "stream size detection"},
    };
    for (const auto& entry : cases)
        EXPECT_EQ(FailureOf(entry.call),
                  "1: Service \"" + std::string(entry.service) + "\" is not implemented.");
    EXPECT_EQ(FailureOf([&] { stream.Seek(0, static_cast<MSeekOrigin>(3)); }), "2: Invalid seek origin.");
    EXPECT_EQ(FailureOf([&] { stream.WriteFill(0); }), "none");
}

/// The seek of the base class on what can only be read forward.
class ForwardStream : public MStream {
public:
    explicit ForwardStream(MMemoryStream& source) : source(source) {}
    int32_t Read(void* block, int32_t size) override { return source.Read(block, size); }
    int64_t GetPosition() override { return source.GetPosition(); }
    int64_t GetSize() override { return source.GetSize(); }

private:
    MMemoryStream& source;
};

TEST(MStreamTypedForms, BaseSeekReadsForwardAndStopsAtTheEnd) {
    MMemoryStream memory = StreamOf(std::string(5000, 'x'));
    ForwardStream stream(memory);
    stream.Seek(3000, MSeekOrigin::Begin);
    EXPECT_EQ(stream.GetPosition(), 3000);
    stream.Seek(500, MSeekOrigin::Current);
    EXPECT_EQ(stream.GetPosition(), 3500);
    stream.Seek(-100, MSeekOrigin::End);
    EXPECT_EQ(stream.GetPosition(), 4900);
    stream.Seek(1 << 20, MSeekOrigin::Begin);
    EXPECT_EQ(stream.GetPosition(), 5000);
    EXPECT_EQ(FailureOf([&] { stream.Rewind(); }),
              "1: Service \"backward seek in a stream\" is not implemented.");
}

}  // namespace
