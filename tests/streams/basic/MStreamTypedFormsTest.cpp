#include "streams/basic/MStdFileStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

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
    EXPECT_EQ(FailureOf([&] { stream.Seek(0, static_cast<MSeekOrigin>(3)); }), "2: Invalid seek origin.");
}

/// All lines with their states, as in "C:one|P:tw|E:".
std::string ReadLines(MStream& stream, int32_t bufferSize) {
    std::string result;
    MLineState state;
    do {
        char buffer[64];
        state = stream.ReadLine(buffer, bufferSize);
        result += result.empty() ? "" : "|";
        result += "CPE"[static_cast<int>(state)];
        result += ":" + std::string(buffer);
    } while (state != MLineState::End && result.size() < 1000);
    return result;
}

const struct {
    std::string data;
    int32_t bufferSize;
    const char* base;
    const char* memory;
    const char* file;
} LineCases[] = {
    {"a\r\nb", 64, "C:a|C:b|E:", "C:a|C:b|E:", "C:a|C:b|E:"},
    {"\n\nx\n", 64, "C:|C:|C:x|E:", "C:|C:|C:x|E:", "C:|C:|C:x|E:"},
    {"", 64, "E:", "E:", "E:"},
    // Without a look at the next byte the base cannot know that the line is over.
    {"abcd\n", 3, "P:ab|P:cd|C:|E:", "P:ab|C:cd|E:", "P:ab|C:cd|E:"},
    {"abcd", 3, "P:ab|P:cd|E:", "P:ab|C:cd|E:", "P:ab|C:cd|E:"},
    {"ab\r\n", 3, "P:ab|C:|E:", "C:ab|E:", "C:ab|E:"},
    // A zero is an ordinary character in memory alone; what is printed stops at it.
    {std::string("a\0b\n", 4), 64, "C:a|C:b|E:", "C:a|E:", "C:a|C:b|E:"},
};

TEST(MStreamLine, EveryKindOfStreamCutsLinesItsOwnWay) {
    const MScratch scratch;
    for (const auto& entry : LineCases) {
        SCOPED_TRACE(entry.data);
        MMemoryStream memory = MStreamOf(entry.data);
        EXPECT_EQ(ReadLines(memory, entry.bufferSize), entry.memory);

        MMemoryStream source = MStreamOf(entry.data);
        MBreakingStream base(&source);
        EXPECT_EQ(ReadLines(base, entry.bufferSize), entry.base);

        MStdFileStream file;
        file.Open(scratch.WriteFile("lines.txt", entry.data), MOpenRead);
        EXPECT_EQ(ReadLines(file, entry.bufferSize), entry.file);
    }
}

TEST(MStreamLine, MemoryKeepsZerosAndLeavesThePositionBehindTheData) {
    MMemoryStream stream("a\0b", 3);
    char buffer[8];
    EXPECT_EQ(stream.ReadLine(buffer, 8), MLineState::Complete);
    EXPECT_EQ(std::string(buffer, 3), std::string("a\0b", 3));
    EXPECT_EQ(stream.GetPosition(), 4);
    EXPECT_TRUE(stream.IsEnd());
    EXPECT_EQ(MReadAll(stream), "");
    // What the write leaves out must be zero, not what happened to lie in memory.
    stream.Write("c", 1);
    EXPECT_EQ(MBytesOf(stream), std::string("a\0b\0c", 5));
    EXPECT_EQ(FailureOf([&] { stream.ReadLine(buffer, -1); }),
              "0: Trying to read a string of negative size.");
}

TEST(MStreamLine, LoadLineJoinsPiecesOfAnyLength) {
    for (const size_t length : {0u, 254u, 255u, 256u, 510u}) {
        const std::string data = std::string(length, 'x') + "\r\nlast";
        MMemoryStream memory = MStreamOf(data);
        MDispatchStream base(&memory);
        EXPECT_EQ(Text(base.LoadRequiredLine()), std::string(length, 'x'));
        EXPECT_EQ(Text(base.LoadRequiredLine()), "last");
        MString line = "before";
        EXPECT_FALSE(base.LoadLine(line));
        EXPECT_TRUE(line.IsEmpty());
    }
}

}  // namespace
