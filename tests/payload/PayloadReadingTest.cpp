#include "foundation/base/MException.h"
#include "payload/MLargeResourceLibrary.h"
#include "payload/MPayloadFormat.h"
#include "payload/MPayloadIndex.h"
#include "payload/MSfx.h"
#include "streams/compression/MZLibStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestPayload.h"
#include "tests/support/MTestText.h"

class PayloadWithFlags : public testing::TestWithParam<uint32_t> {};

TEST_P(PayloadWithFlags, GivesItemsBackInAnyOrderAndAgain) {
    MTestPayload payload(GetParam());
    const std::string contents[] = {"first", "", MTestNoise(300000), "last"};
    std::string xml = "<install>";
    for (const std::string& content : contents) xml += "<file" + payload.Add(content) + "/>";
    const std::string bytes = payload.Finish(xml + "</install>");
    MMemoryStream stream = MStreamOf(bytes);
    MLargeResourceLibrary library;
    library.Attach(&stream);
    for (const int32_t index : {3, 2, 1, 0, 2}) {
        const auto item = library.OpenItem(library.GetSubItem(index));
        EXPECT_EQ(item->GetSize(), static_cast<int64_t>(contents[index].size()));
        EXPECT_EQ(MReadAll(*item), contents[index]) << index;
    }
}

// An index that ended just where a piece of the reader did was asked for more, and refused.
TEST_P(PayloadWithFlags, ReadsAnIndexOfAnySize) {
    for (const size_t size : {65535u, 65536u, 65537u, 131072u}) {
        const std::string begin = "<install pad=\"";
        const std::string end = "\"/>";
        const std::string pad(size - begin.size() - end.size(), 'x');
        std::string xml = begin;
        const std::string bytes = MTestPayload(GetParam()).Finish(xml.append(pad).append(end));
        MMemoryStream stream = MStreamOf(bytes);
        MLargeResourceLibrary library;
        library.Attach(&stream);
        EXPECT_EQ(library.GetAttribute("pad").GetLength(), static_cast<int32_t>(pad.size())) << size;
    }
}

TEST_P(PayloadWithFlags, SeeksForwardAndBackwardOnlyWhenStored) {
    MTestPayload payload(GetParam());
    const std::string content = MTestNoise(50000);
    const std::string bytes = payload.Finish("<install><file" + payload.Add(content) + "/></install>");
    MMemoryStream stream = MStreamOf(bytes);
    MLargeResourceLibrary library;
    library.Attach(&stream);
    const auto item = library.OpenItem(library.GetSubItem(0));
    item->Seek(20000, MSeekOrigin::Begin);
    EXPECT_EQ(item->ReadInt8(), static_cast<int8_t>(content[20000]));
    const bool isCompressed = GetParam() & MPayloadFormat::ItemsCompressed;
    if (isCompressed) {
        EXPECT_THROW(item->Seek(0, MSeekOrigin::Begin), MException);
    } else {
        item->Seek(0, MSeekOrigin::Begin);
        EXPECT_EQ(MReadAll(*item), content);
    }
}

// A flipped bit may hit bytes that no check sum covers, but wrong content must never pass for right.
TEST_P(PayloadWithFlags, NeverPassesDamagedContentForRight) {
    if (!(GetParam() & MPayloadFormat::ItemsCompressed)) GTEST_SKIP() << "stored items carry no check sum";
    MTestPayload payload(GetParam());
    const std::string content = MTestNoise(3000);
    const std::string sound = payload.Finish("<install><file" + payload.Add(content) + "/></install>");
    for (size_t byte = 0; byte < 3000; byte += 7) {
        std::string bytes = sound;
        bytes[byte] = static_cast<char>(bytes[byte] ^ 0x10);
        MMemoryStream stream = MStreamOf(bytes);
        MLargeResourceLibrary library;
        library.Attach(&stream);
        std::string read;
        try {
            read = MReadAll(*library.OpenItem(library.GetSubItem(0)));
        } catch (const MException&) {
            continue;
        }
        EXPECT_EQ(read, content) << "flipped bit in byte " << byte;
    }
}

INSTANTIATE_TEST_SUITE_P(AllForms, PayloadWithFlags, testing::Values(0u, 1u, 2u, 3u, 5u, 7u));

TEST(PayloadIndexTest, RefusesWhatIsDamaged) {
    MTestPayload payload(0);
    const std::string sound = payload.Finish("<install/>");
    const size_t digest = sound.size() - 28;
    const size_t sizeField = sound.size() - 12;
    struct {
        size_t position;
        char value;
        const char* message;
    } const cases[] = {
        {0, 'x', "Resource library file is corrupt."},
        {digest, 0, "Resource library file is corrupt."},
        {sizeField + 2, 0x21, "Invalid large resource library format."},
        {sizeField + 4, 1, "Invalid large resource library format."},
        {sizeField + 7, static_cast<char>(0x80), "Invalid large resource library format."},
    };
    for (const auto& [position, value, message] : cases) {
        std::string bytes = sound;
        bytes[position] = value;
        MMemoryStream stream = MStreamOf(bytes);
        MLargeResourceLibrary library;
        EXPECT_EQ(FailureOf([&] { library.Attach(&stream); }), std::string("100: ") + message);
    }
}

TEST(PayloadIndexTest, IsLimitedInItsStoredSize) {
    const std::string around = "<install></install>";
    for (const int32_t excess : {0, 1}) {
        std::string index = around;
        const size_t size = MPayloadFormat::MaximumIndexSize + static_cast<size_t>(excess);
        index.insert(around.size() / 2, size - around.size(), 'x');
        const std::string bytes = MTestPayload(0).Finish(index);
        MMemoryStream stream = MStreamOf(bytes);
        MLargeResourceLibrary library;
        EXPECT_EQ(FailureOf([&] { library.Attach(&stream); }),
                  excess == 0 ? "none" : "100: Invalid large resource library format.");
    }
}

TEST(PayloadIndexTest, IsLimitedInTheSizeOfItsText) {
    MMemoryStream stored, text;
    MZLibStream writer;
    writer.Open(&stored, true, 1);
    for (const std::string piece(1 << 20, 'x'); writer.GetPosition() <= MPayloadFormat::MaximumIndexTextSize;)
        writer.Write(piece.data(), 1 << 20);
    writer.Finish();
    stored.Rewind();
    EXPECT_EQ(FailureOf([&] { MReadPayloadIndex(stored, MPayloadFormat::IndexCompressed, text); }),
              "100: Invalid large resource library format.");
}

TEST(PayloadIndexTest, EveryTruncationRaises) {
    for (const uint32_t flags : {0u, 3u, 7u}) {
        MTestPayload payload(flags);
        const std::string sound = payload.Finish("<install><file" + payload.Add("content") + "/></install>");
        for (size_t size = 0; size < sound.size(); ++size) {
            const std::string bytes = sound.substr(0, size);
            MMemoryStream stream = MStreamOf(bytes);
            MLargeResourceLibrary library;
            EXPECT_THROW(library.Attach(&stream), MException) << size;
        }
    }
}

TEST(PayloadItemTest, ReportsNumbersThatCannotBe) {
    const std::string bytes = MTestPayload(0).Finish("<install><file/></install>");
    MMemoryStream stream = MStreamOf(bytes);
    MLargeResourceLibrary library;
    library.Attach(&stream);
    MXMLItem& file = *library.GetSubItem(0);
    EXPECT_EQ(FailureOf([&] { (void)library.OpenItem(&file); }),
              "0: Could not find required attribute (filestart).");
    struct {
        const char* start;
        const char* size;
    } const cases[] = {{"-1", "1"}, {"0", "-1"}, {"5000000000", "1"}, {"0", "999999999999"}};
    for (const auto& [start, size] : cases) {
        file.SetAttribute("filestart", start);
        file.SetAttribute("filesize", size);
        EXPECT_THROW((void)MReadAll(*library.OpenItem(&file)), MException) << start << " " << size;
    }
}

class SfxTest : public testing::Test {
protected:
    MString Write(const std::string& bytes) { return scratch.WriteFile("program", bytes); }

    MScratch scratch;
    const std::string program = MTestNoise(5000);
    const std::string payload = MTestPayload(0).Finish("<install/>");
};

TEST_F(SfxTest, IsAViewOfThePayloadAndOfTheProgram) {
    const MString path =
        Write(program + payload + "MSFXMSFX" + MWordOf(static_cast<int64_t>(payload.size()), 8));
    MSfx sfx(path);
    ASSERT_TRUE(sfx.IsOpen());
    EXPECT_EQ(sfx.GetSize(), static_cast<int64_t>(payload.size()));
    EXPECT_EQ(MReadAll(sfx), payload);
    EXPECT_EQ(MReadAll(*sfx.OpenExecutable()), program);
}

TEST_F(SfxTest, IsClosedWithoutTrailer) {
    MSfx sfx(Write(program));
    EXPECT_FALSE(sfx.IsOpen());
    EXPECT_EQ(MReadAll(*sfx.OpenExecutable()), program);
}

TEST_F(SfxTest, RaisesForATrailerThatCannotBe) {
    const std::string short15(15, 'x');
    const std::string magic = "MSFXMSFX";
    const std::string tooLarge = program + magic + std::string("\x00\x00\x01\x00\x00\x00\x00\x00", 8);
    const std::string negative = program + magic + std::string(8, '\xff');
    const std::string extreme = program + magic + std::string("\xff\xff\xff\xff\xff\xff\xff\x7f", 8);
    for (const std::string& bytes : {short15, tooLarge, negative, extreme}) {
        const MString path = Write(bytes);
        EXPECT_EQ(FailureOf([&] { MSfx sfx(path); }), "100: Could not perform file seek.");
    }
}
