#include "streams/basic/MStdFileStream.h"
#include "streams/basic/MConsoleStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <functional>

namespace {

class MStdFileStreamTest : public testing::Test {
protected:
    ~MStdFileStreamTest() noexcept override = default;

    MScratch scratch;
    MStdFileStream stream;
};

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
    for (const std::function<void()>& operation : std::initializer_list<std::function<void()>>{
             [&] { stream.WriteInt8(1); }, [&] { (void)stream.ReadInt8(); }, [&] { (void)stream.GetSize(); }})
        EXPECT_EQ(FailureOf(operation), "102: File stream is not initialized.");
    const MString missing = scratch.Join("no/such");
    const std::pair<MString, MOpenFlags> cases[] = {{"", MOpenRead},
                                                    {missing, MOpenRead},
                                                    {missing, MOpenWrite},
                                                    {scratch.WriteFile("present", "x"), MOpenFlags{}},
                                                    {scratch.GetPath(), MOpenRead}};
    for (const auto& [path, flags] : cases)
        EXPECT_EQ(FailureOf([&, to = path, how = flags] { stream.Open(to, how); }),
                  "101: File \"" + Text(path) + "\" could not be open. Make sure it exists.");
    EXPECT_EQ(FailureOf([&] { stream.Open(missing, MOpenWrite | MOpenCreate); }),
              "101: File \"" + Text(missing) +
                  "\" could not be created. Make sure there is no write-protected file already existing.");
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
    // What the runtime library's buffer held beyond the cut was still read afterwards.
    stream.Seek(4, MSeekOrigin::Begin);
    stream.Truncate();
    stream.Rewind();
    EXPECT_EQ(MReadAll(stream), "0123");
    stream.Write("!", 1);
    EXPECT_EQ(FailureOf([&] { stream.Seek(-1, MSeekOrigin::Begin); }), "100: Could not perform file seek.");
    stream.Open("", MOpenRead);
    EXPECT_EQ(MReadAll(stream), "0123!") << "an empty name opens the last file again";
}

TEST_F(MStdFileStreamTest, NamesMayBeLongAndOfAnyCharacters) {
    const std::string part = "\xC5\xBElu\xC5\xA5 \xF0\x9F\x98\x80 " + std::string(100, 'a');
    const MString name = MDecodeUTF8Exact(part + "/" + part + "/" + part);
    ASSERT_GT(name.GetLength(), 260);
    scratch.WriteFile(name, "deep");
    EXPECT_EQ(scratch.ListTree(), part + "/\n" + part + "/" + part + "/\n" + Text(name) + "\n");
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
    EXPECT_EQ(MReadAll(stream), "end");
}

TEST(MConsoleStream, TextIsWholeAndBytesPassAsTheyAre) {
    testing::internal::CaptureStdout();
    {
        MConsoleStream console;
        EXPECT_TRUE(console.IsOpen());
        console.WriteLine(MDecodeUTF8Exact("p\xC5\x99\xC3\xADli\xC5\xA1 \xF0\x9F\x98\x80 ab"));
        console.Write("\xFF\x01", 2);
        console.Flush();
    }
    std::fputs("open", stdout);
    std::string output = testing::internal::GetCapturedStdout();
    std::erase(output, '\r');
    EXPECT_EQ(output, "p\xC5\x99\xC3\xADli\xC5\xA1 \xF0\x9F\x98\x80 ab\n\xFF\x01open");
}

}  // namespace
