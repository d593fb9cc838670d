#include "streams/basic/MStdFileStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

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
