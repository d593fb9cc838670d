#include "streams/basic/MStdFileStream.h"
#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

class MStdFileStreamTest : public testing::Test {
protected:
    ~MStdFileStreamTest() noexcept override = default;

    MScratch scratch;
    MStdFileStream stream;
};

TEST_F(MStdFileStreamTest, EveryOperationNeedsAnOpenFile) {
    char byte = 0;
    const std::function<void()> operations[] = {
        [&] { stream.Write(&byte, 1); },
        [&] { stream.Read(&byte, 1); },
        [&] { stream.ReadLine(&byte, 1); },
        [&] { stream.Rewind(); },
        [&] { stream.Flush(); },
        [&] { (void)stream.IsEnd(); },
        [&] { (void)stream.GetPosition(); },
        [&] { stream.Truncate(); },
        [&] { (void)stream.GetSize(); },
    };
    for (const auto& operation : operations)
        EXPECT_EQ(FailureOf(operation), "102: File stream is not initialized.");
    EXPECT_FALSE(stream.IsOpen());
    EXPECT_EQ(FailureOf([&] { stream.Close(); }), "none");
}

TEST_F(MStdFileStreamTest, FlagsDecideWhatBecomesOfTheContents) {
    const MString path = scratch.WriteFile("a", "old contents");
    stream.Open(path, MOpenWrite);
    stream.Write("NEW", 3);
    stream.Close();
    EXPECT_EQ(scratch.ReadFile("a"), "NEW contents");

    stream.Open(path, MOpenRead);
    EXPECT_THROW((stream.Write("x", 1), stream.Flush()), MException);
    stream.Close();

    stream.Open(path, MOpenWrite | MOpenCreate);
    EXPECT_EQ(stream.GetSize(), 0);
    stream.Close();
    EXPECT_EQ(scratch.ReadFile("a"), "");
}

TEST_F(MStdFileStreamTest, AFileThatCannotBeOpenedIsNamed) {
    const MString missing = scratch.Join("no/such");
    const char* const notOpen = "could not be open. Make sure it exists.";
    const struct {
        MString path;
        MOpenFlags flags;
        const char* text;
    } cases[] = {
        {missing, MOpenRead, notOpen},
        {missing, MOpenWrite, notOpen},
        {missing, MOpenWrite | MOpenCreate,
         "could not be created. Make sure there is no write-protected file already existing."},
        {scratch.WriteFile("present", "x"), MOpenFlags{}, notOpen},
        {"", MOpenRead, notOpen},
        {scratch.GetPath(), MOpenRead, notOpen},
    };
    for (const auto& [path, flags, text] : cases) {
        MStdFileStream file;
        EXPECT_EQ(FailureOf([&, to = path, how = flags] { file.Open(to, how); }),
                  "101: File \"" + Text(path) + "\" " + text);
    }
}

TEST_F(MStdFileStreamTest, AnEmptyNameOpensTheLastFileAgain) {
    stream.Open(scratch.WriteFile("a", "abc"), MOpenRead);
    stream.Open("", MOpenRead);
    EXPECT_EQ(stream.ReadInt8(), 'a');
    EXPECT_TRUE(stream.GetFileName().IsExactly(scratch.Join("a")));
}

TEST_F(MStdFileStreamTest, ReadingAndWritingMayAlternate) {
    stream.Open(scratch.WriteFile("a", "0123456789"), MOpenWrite);
    char block[4] = {};
    EXPECT_EQ(stream.Read(block, 2), 2);
    stream.Write("AB", 2);
    EXPECT_EQ(stream.Read(block, 3), 3);
    EXPECT_STREQ(block, "456");
    EXPECT_EQ(stream.GetPosition(), 7);
    stream.Write("C", 1);
    EXPECT_EQ(stream.ReadLine(block, 4), MLineState::Complete);
    EXPECT_STREQ(block, "89");
    stream.Close();
    EXPECT_EQ(scratch.ReadFile("a"), "01AB456C89");
}

TEST_F(MStdFileStreamTest, SizesAndTheEnd) {
    stream.Open(scratch.WriteFile("a", "0123456789"), MOpenWrite);
    stream.Seek(-2, MSeekOrigin::End);
    EXPECT_FALSE(stream.IsEnd());
    stream.Write("XYZ", 3);
    // What has been written is not in the size that the file had when it was opened.
    EXPECT_TRUE(stream.IsEnd());
    EXPECT_EQ(stream.GetSize(), 11);
    EXPECT_EQ(stream.GetPosition(), 11);
    stream.Seek(4, MSeekOrigin::Begin);
    stream.Truncate();
    EXPECT_EQ(stream.GetSize(), 4);
    stream.Write("!", 1);
    EXPECT_EQ(FailureOf([&] { stream.Seek(-1, MSeekOrigin::Begin); }), "100: Could not perform file seek.");
    stream.Close();
    EXPECT_EQ(scratch.ReadFile("a"), "0123!");
}

// Seeking fills the runtime library's buffer; what it held beyond the cut was still read afterwards.
TEST_F(MStdFileStreamTest, WhatIsCutAwayIsNotReadAnyMore) {
    stream.Open(scratch.WriteFile("a", "good bytes, bad bytes"), MOpenWrite);
    stream.Seek(10, MSeekOrigin::Begin);
    stream.Truncate();
    stream.Rewind();
    char bytes[32];
    EXPECT_EQ(stream.Read(bytes, sizeof(bytes)), 10);
}

TEST_F(MStdFileStreamTest, NamesMayBeLongAndOfAnyCharacters) {
    const MString name = MDecodeUTF8Exact("\xC5\xBElu\xC5\xA5 \xF0\x9F\x98\x80 ab.txt");
    scratch.WriteFile(name, "x");
    EXPECT_EQ(scratch.ListTree(), Text(name) + "\n");

    MString longName;
    for (int i = 0; i < 4; ++i)
        longName += MString("/") + MDecodeUTF8Exact(std::string(90, static_cast<char>('a' + i)));
    ASSERT_GT(longName.GetLength(), 260);
    scratch.WriteFile(longName, "deep");
    EXPECT_EQ(scratch.ReadFile(longName), "deep");
}

TEST_F(MStdFileStreamTest, PositionsGoBeyond32Bits) {
    constexpr int64_t far = (int64_t(5) << 30) + 3;
    stream.Open(scratch.Join("sparse"), MOpenWrite | MOpenCreate);
    stream.Seek(far, MSeekOrigin::Begin);
    stream.Write("end", 3);
    EXPECT_EQ(stream.GetSize(), far + 3);
    stream.Open("", MOpenRead);
    stream.Seek(-3, MSeekOrigin::End);
    EXPECT_EQ(stream.GetPosition(), far);
    EXPECT_EQ(stream.ReadInt8(), 'e');
    EXPECT_EQ(MFile::GetFileSize(scratch.Join("sparse")), far + 3);
}

}  // namespace
