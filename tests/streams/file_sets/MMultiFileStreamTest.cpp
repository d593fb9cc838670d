#include "streams/file_sets/MMultiFileStream.h"

#include "foundation/files/MFile.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

namespace {

std::string File(const std::string& name, const std::string& more = "") {
    return "<File Name=\"" + name + "\" " + more + "/>";
}

class MMultiFileStreamTest : public testing::Test {
protected:
    ~MMultiFileStreamTest() noexcept override = default;

    MString WriteIndex(const std::string& elements) const {
        return scratch.WriteFile("deep/er/set", "<?xml version=\"1.0\"?>\n<Set>" + elements + "</Set>");
    }
    /// Three parts: "abc", nothing, "defgh".
    void OpenParts() {
        for (const auto& [name, content] : {std::pair("1", "abc"), {"2", ""}, {"3", "defgh"}})
            scratch.WriteFile(MString("deep/er/") + name, content);
        set.Open(WriteIndex(File("1") + File("2") + File("3")));
    }
    std::string Read(int32_t count) {
        std::string text(static_cast<size_t>(count), '\0');
        text.resize(static_cast<size_t>(set.Read(text.data(), count)));
        return text;
    }
    void Write(std::string_view text) { set.Write(text.data(), static_cast<int32_t>(text.size())); }

    MScratch scratch;
    MMultiFileStream set;
};

}  // namespace

TEST_F(MMultiFileStreamTest, WritesFullPartsAndTheIndexLast) {
    const MString index = scratch.Join(MDecodeUTF8Exact("\u017E.multi"));
    EXPECT_EQ(FailureOf([&] { set.Create(index, 0); }), "2: Parts cannot be 0 bytes long.");
    set.Create(index, 3);
    for (const char* text : {"a", "", "bcabca", "bc"}) Write(text);
    EXPECT_EQ(set.GetPosition(), 9);
    // Writing goes on where a seek has led.
    set.Seek(1, MSeekOrigin::Begin);
    EXPECT_EQ(Read(3), "bca");
    Write("X");
    EXPECT_FALSE(MFile::Exists(index));
    set.Close();
    const auto part = [](int number, const std::string& content) {
        return "\t<File md5=\"" + MTestDigest(content) + "\" Name=\"\u017E.multi" + std::to_string(number) +
               ".cab\" Size=\"" + std::to_string(content.size()) + "\"/>\n";
    };
    EXPECT_EQ(MReadTestFile(index), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Files PartSize=\"3\">\n" +
                                        part(1, "abc") + part(2, "aXc") + part(3, "abc") + "</Files>\n");
    set.Open(index);
    EXPECT_EQ(Read(100), "abcaXcabc");
    for (int32_t i = 0; i < 3; ++i) EXPECT_TRUE(set.IsPartValid(i)) << i;
}

TEST_F(MMultiFileStreamTest, OnlyAFinishedSetGetsAnIndex) {
    const MString index = scratch.Join("set");
    {
        MMultiFileStream abandoned;
        abandoned.Create(index, 3);
        abandoned.Write("abcd", 4);
    }
    scratch.WriteFile("set3.cab/in the way", "");
    set.Create(index, 3);
    EXPECT_THAT(FailureOf([&] { Write("abcabcabc"); }), testing::StartsWith("101: File \""));
    EXPECT_EQ(FailureOf([&] { set.Close(); }), "none");
    // A part that goes while the set is being written cannot be hashed any more.
    set.Create(index, 2);
    Write("abc");
    MFile::Delete(scratch.Join("set1.cab"));
    EXPECT_THAT(FailureOf([&] { set.Close(); }), testing::StartsWith("101: File \""));
    EXPECT_FALSE(set.IsOpen());
    EXPECT_FALSE(MFile::Exists(index));
}

TEST_F(MMultiFileStreamTest, ReadsAcrossPartsAndStaysAtAPartsEnd) {
    OpenParts();
    EXPECT_EQ(set.GetSize(), 8);
    EXPECT_EQ(set.Read(nullptr, 0) + set.Read(nullptr, -1), 0);
    EXPECT_EQ(Read(3), "abc");
    // The end of part 1 is still part 1: counted from its start, position 0 is the "a".
    set.Seek(0, MSeekOrigin::Current);
    EXPECT_EQ(Read(4), "abcd");
    EXPECT_EQ(set.GetPosition(), 4);
    EXPECT_FALSE(set.IsEnd());
    EXPECT_EQ(Read(100), "efgh");
    EXPECT_TRUE(set.IsEnd());
    EXPECT_EQ(Read(1), "");
    EXPECT_EQ(set.GetPosition(), 8);
    EXPECT_EQ(FailureOf([&] { Write("x"); }), "100: Invalid operation (writing to a read-only multistream).");
}

TEST_F(MMultiFileStreamTest, Seeks) {
    OpenParts();
    const struct {
        int64_t position;
        MSeekOrigin origin;
        int64_t result;  ///< -1 for a failure
        const char* rest;
    } cases[] = {
        {3, MSeekOrigin::Begin, 3, "defgh"},
        {4, MSeekOrigin::Begin, 4, "efgh"},
        {1, MSeekOrigin::Current, 4, "efgh"},  // from the start of part 3, where the last case has read to
        {8, MSeekOrigin::Begin, 8, ""},
        {-8, MSeekOrigin::End, 0, "abcdefgh"},
        {0, MSeekOrigin::End, 8, ""},
        {9, MSeekOrigin::Begin, -1, "defgh"},
        {INT64_MAX, MSeekOrigin::End, -1, "defgh"},
        {6, MSeekOrigin::Current, -1, "defgh"},
        {-9, MSeekOrigin::End, -1, "abcdefgh"},
        {-1, MSeekOrigin::Begin, -1, "abcdefgh"}};
    for (const auto& [position, origin, result, rest] : cases) {
        const std::string told = FailureOf([&, to = position, from = origin] {
            set.Seek(to, from);
            EXPECT_EQ(set.GetPosition(), result);
        });
        EXPECT_EQ(told, result < 0 ? "100: Could not perform file seek." : "none") << position;
        EXPECT_EQ(Read(100), rest) << position;
    }
    EXPECT_EQ(FailureOf([&] { set.Seek(0, static_cast<MSeekOrigin>(3)); }), "2: Invalid seek origin.");
}

TEST_F(MMultiFileStreamTest, ASetWithoutPartsIsEmpty) {
    set.Open(WriteIndex("<Other Name=\"/\"/>"));
    EXPECT_EQ(set.GetSize(), 0);
    EXPECT_EQ(Read(1), "");
    EXPECT_EQ(FailureOf([&] { (void)set.IsPartValid(0); }), "0: Index out of range.");
}

TEST_F(MMultiFileStreamTest, ComparesPartsWithTheIndexWithoutMoving) {
    const std::pair<std::string, bool> cases[] = {
        {"Size=\"3\" md5=\"" + MTestDigest("abc") + "\"", true},
        {"Size=\"3\" md5=\"900150983cd24fb0d6963f7d28e17f72\"", true},
        {"Size=\"3\" md5=\"" + MTestDigest("a") + "\"", false},
        {"Size=\"3\"", false},
        {"Size=\"4\" md5=\"" + MTestDigest("abc") + "\"", false},
        {"md5=\"" + MTestDigest("abc") + "\"", false},
    };
    scratch.WriteFile("deep/er/part", "abc");
    scratch.WriteFile("deep/er/empty", "");
    for (const auto& [attributes, isValid] : cases) {
        set.Open(WriteIndex(File("part", attributes) + File("empty", "md5=\"" + MTestDigest("") + "\"")));
        EXPECT_EQ(Read(1), "a");
        EXPECT_EQ(set.IsPartValid(0), isValid) << attributes;
        EXPECT_TRUE(set.IsPartValid(1));
        EXPECT_EQ(Read(5), "bc");
    }
}

TEST_F(MMultiFileStreamTest, LooksForPartsInTheDirectoriesAbove) {
    for (const auto& [name, content] : {std::pair("deep/er/beside", "1"),
                                        {"deep/beside", "not this one"},
                                        {"deep/er/above/directory", ""},
                                        {"deep/above", "2"},
                                        {"far above", "3"}})
        scratch.WriteFile(name, content);
    set.Open(WriteIndex(File("beside") + File("above") + File("far above") + File("beside")));
    EXPECT_EQ(Read(10), "1231");
    const MString index = WriteIndex(File("beside") + File("corvanth-missing.cab"));
    const std::string told = FailureOf([&] { set.Open(index); });
    EXPECT_THAT(told, testing::MatchesRegex("101: Could not find file .?:?/corvanth-missing\\.cab\\."));
    EXPECT_FALSE(set.IsOpen());
    EXPECT_EQ(set.GetSize(), 0);
}

TEST_F(MMultiFileStreamTest, RefusesIndicesThatCannotBeTrusted) {
    scratch.WriteFile("deep/secret", "secret");
    scratch.WriteFile("deep/er/part", "abc");
    const std::string index = Text(scratch.Join("deep/er/set"));
    std::string many;
    for (int32_t i = 0; i <= MMultiFileStream::MaximumPartCount; ++i) many += File("part");
    std::vector<std::pair<std::string, std::string>> cases = {
        {"<File/>", "0: Could not find required attribute (Name)."},
        {many, "100: The index \"" + index + "\" names more than 10000 parts."},
        {std::string(MMultiFileStream::MaximumIndexSize, ' '),
         "100: The index \"" + index + "\" has more than 16777216 bytes."},
        {"<File>", "100: Invalid file contents. Invalid closing element name."},
    };
    for (const char* name : {"../secret", "..\\secret", "/etc/passwd", "C:secret", "..", ".", ""})
        cases.emplace_back(File(name), "100: The part name \"" + std::string(name) + "\" in the index \"" +
                                           index + "\" is no plain file name.");
    for (const char* size : {"-3", "", "9999999999999999999"})
        cases.emplace_back(File("part", "Size=\"" + std::string(size) + "\""),
                           "100: The size \"" + std::string(size) + "\" in the index \"" + index +
                               "\" is no number.");
    for (const auto& [elements, expected] : cases) {
        const MString path = WriteIndex(elements);
        EXPECT_EQ(FailureOf([&] { set.Open(path); }), expected);
        EXPECT_FALSE(set.IsOpen());
    }
}

// The runtime library of Windows opens 512 files at most.
TEST_F(MMultiFileStreamTest, HundredsOfPartsTakeOneFileHandle) {
    constexpr int32_t PartCount = 700;
    const MString index = scratch.Join("set");
    set.Create(index, 2);
    for (int32_t i = 0; i < PartCount; ++i) set.WriteInt16(static_cast<int16_t>(i));
    set.Close();
    set.Open(index);
    EXPECT_EQ(set.GetPartCount(), PartCount);
    for (int32_t i = PartCount - 1; i >= 0; --i) {
        set.Seek(i * 2, MSeekOrigin::Begin);
        EXPECT_EQ(set.ReadInt16(), i);
    }
}
