#include "foundation/text/MEncodingReader.h"
#include "foundation/text/MEncodingTables.h"
#include "foundation/text/MEncodingWriter.h"
#include "streams/basic/MMemoryStream.h"

#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

using namespace std::string_view_literals;

const MEncoding::Codec& UTF8() {
    return MEncoding::GetUTF8Codec();
}

std::string Encoded(const char* encoding, const char16_t* text) {
    return MBytesOf(MEncoding::FindCodec(encoding).Encode(Wide(text), false));
}

TEST(EncodingTest, NamesLeadToCodecsIgnoringCase) {
    EXPECT_EQ(&MEncoding::FindCodec("latin2"), &MEncoding::FindCodec("ISO-8859-2"));
    EXPECT_EQ(&MEncoding::FindCodec("LATIN2"), &MEncoding::FindCodec("iso-ir-101"));
    EXPECT_EQ(&MEncoding::FindCodec("utf-8"), &MEncoding::FindCodec("UTF8"));
    EXPECT_EQ(Text(MEncoding::FindCodec("").GetName()), "ascii");
    EXPECT_EQ(Text(MEncoding::FindCodec("UTF-16").GetName()), "utf16");
    EXPECT_EQ(Text(MEncoding::FindCodec("iso-8859-1").GetName()), "windows-1252");
    EXPECT_EQ(FailureOf([] { (void)MEncoding::FindCodec("klingon"); }),
              "0: No codec found for encoding klingon.");
}

TEST(EncodingTest, EveryByteOfEveryTableComesBack) {
    for (const MEncodingTable& table : MEncodingTables) {
        const MEncoding::Codec& codec = MEncoding::FindCodec(table.names[0]);
        for (const char* name : table.names)
            EXPECT_TRUE(!name || &MEncoding::FindCodec(name) == &codec) << name;
        std::string bytes;
        for (int32_t byte = 1; byte < 256; ++byte)
            if (byte < 128 || table.units[byte - 128] != 0) bytes += static_cast<char>(byte);
        const MString text = codec.Decode(bytes);
        EXPECT_EQ(text.GetLength(), static_cast<int32_t>(bytes.size())) << table.names[0];
        EXPECT_EQ(MBytesOf(codec.Encode(text, false)), bytes) << table.names[0];
    }
}

TEST(EncodingTest, TablesHoldThePublishedCharacters) {
    struct {
        const char* encoding;
        const char* byte;
        char16_t unit;
    } const cases[] = {
        {"KOI8-R", "\xC1", 0x0430},       {"KOI8-RU", "\xA4", 0x0454},      {"ISO-8859-5", "\xB0", 0x0410},
        {"greek", "\xE1", 0x03B1},        {"hebrew", "\xE0", 0x05D0},       {"CP850", "\x81", 0x00FC},
        {"CP866", "\x80", 0x0410},        {"windows-1250", "\xE8", 0x010D}, {"ISO-8859-1", "\x80", 0x20AC},
        {"CP1251", "\xE0", 0x0430},       {"Apple Roman", "\x8A", 0x00E4},  {"hp-roman8", "\xA1", 0x00C0},
        {"latin10", "\xA4", 0x20AC},      {"IBM874", "\xA1", 0x0E01},       {"iso-celtic", "\xA1", 0x1E02},
        {"windows-1252", "\x81", 0x0081},
    };
    for (const auto& c : cases) {
        const MString text = MEncoding::FindCodec(c.encoding).Decode(c.byte);
        ASSERT_EQ(text.GetLength(), 1) << c.encoding;
        EXPECT_EQ(static_cast<char16_t>(text[0]), c.unit) << c.encoding;
    }
    EXPECT_EQ(Encoded("windows-1252", u"\u20AC\u4E00x"), "\x80x");
    EXPECT_TRUE(MEncoding::FindCodec("arabic").Decode("\xA1").IsEmpty());
}

TEST(EncodingTest, UTF8DecodingForgivesInItsOwnWay) {
    struct {
        std::string_view bytes;
        std::u16string_view units;
    } const cases[] = {
        {"\xEF\xBB\xBF"
         "A",
         u"A"},
        {"\xC3"
         "A",
         u"\x01"},
        {"\xC3"
         "AB",
         u"\x01"
         "B"},
        {"\x80\xBFx", u"x"},
        {"\xF0\x9F\x98\x80", u"\U0001F600"},
        {"\xC1\x81", u"A"},
        {"\xE2\x82", u""},
        {"\xFF\xFE"
         "a",
         u"a"},
        {"ab\0c"sv, u"ab"},
        {"\xC3\0c"sv, u"\x01"
                      "c"},
        {"\xED\xA0\x80|\xF5\xA2\xA2\xA2|\xF4\x8F\xBF\xBF", u"\x01|\x01|\U0010FFFF"},
        {"exactly sixteen.\xC3\xA9", u"exactly sixteen.\u00E9"},
        {"a run of sixteen\0hidden"sv, u"a run of sixteen"},
    };
    for (const auto& c : cases) {
        const MString text = UTF8().Decode(c.bytes);
        EXPECT_TRUE(text.IsExactly(MString::Copy(c.units.data(), static_cast<int32_t>(c.units.size()))))
            << c.bytes;
    }
}

TEST(EncodingTest, UTF8EncodingDropsWhatFollowsAPair) {
    EXPECT_EQ(Encoded("utf8", u"\u00E9\u20AC"), "\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(Encoded("utf8", u"\U0001F600ab"), "\xF0\x9F\x98\x80"
                                                "b");
    EXPECT_EQ(Encoded("utf8", u"\U0001F600"), "\xF0\x9F\x98\x80");
    const char16_t loneHigh[] = {0xD83D, 'a', 'b', 0};
    EXPECT_EQ(Encoded("utf8", loneHigh), "b");
    const char16_t loneLow[] = {'x', 0xDE00, 'a', 0xD83D, 0};
    EXPECT_EQ(Encoded("utf8", loneLow), "xa");
    EXPECT_EQ(Encoded("utf8", u"\U0010FEE9abc"), "\xE9"
                                                 "c");
    EXPECT_EQ(Encoded("utf8", u"\U0010FE00ab"), "\xF4\x8F\xB8\x80"
                                                "b");
    EXPECT_EQ(MBytesOf(UTF8().Encode("", true)), std::string(1, '\0'));
}

TEST(EncodingTest, ReaderSplitsLinesAcrossItsBuffer) {
    const std::string longLine(5000, 'x');
    const std::string bytes = "\xEF\xBB\xBF"
                              "first\r\n\n" +
                              longLine + std::string("\0zero", 5) + "\n";
    MMemoryStream stream(bytes.data(), static_cast<int32_t>(bytes.size()));
    MEncoding::Reader reader(stream, "utf-8");
    MString line;
    for (const std::string& expected : {std::string("first"), std::string(), longLine, std::string("zero")}) {
        ASSERT_TRUE(reader.ReadLine(line));
        EXPECT_EQ(Text(line), expected);
    }
    EXPECT_FALSE(reader.ReadLine(line));
    EXPECT_EQ(FailureOf([&] { (void)reader.ReadByte(); }), "100: No more data in source stream.");
}

TEST(EncodingTest, UTF16StreamsCarryASignature) {
    MMemoryStream stream;
    {
        MEncoding::Writer writer(stream, "utf16");
        writer.WriteLine(Wide(u"a\u20AC"));
        writer.WriteText(MString("b"));
    }
    EXPECT_EQ(MBytesOf(stream), std::string("\xFF\xFE"
                                            "a\0\xAC\x20\n\0b\0",
                                            10));
    stream.Rewind();
    MEncoding::Reader reader(stream, "utf-16");
    MString line;
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_TRUE(line.IsExactly(Wide(u"a\u20AC")));
    ASSERT_TRUE(reader.ReadLine(line));
    EXPECT_EQ(Text(line), "b");
    EXPECT_FALSE(reader.ReadLine(line));

    MMemoryStream unsigned16("\xFE\xFFxx", 4);
    EXPECT_EQ(FailureOf([&] { MEncoding::Reader wrong(unsigned16, "utf16"); }), "0: Invalid UTF8 header.");
    const auto& codec = MEncoding::FindCodec("utf16");
    EXPECT_EQ(MBytesOf(codec.Encode("A", true)), std::string("A\0\0\0", 4));
    EXPECT_EQ(Text(codec.Decode("A\0\0\0B\0"sv)), "A");
}

TEST(EncodingTest, WritersHandOnWhatTheyHoldAndTellIfThatFails) {
    MMemoryStream stream;
    std::string expected;
    {
        MEncoding::Writer writer(stream, "");
        for (int i = 0; i < 100; ++i) {
            const std::string piece(static_cast<size_t>(i * 7), static_cast<char>('a' + i % 26));
            writer.WriteText(Heap(piece.c_str()));
            expected += piece;
        }
    }
    EXPECT_EQ(MBytesOf(stream), expected);
    for (const bool isFailing : {false, true}) {
        MFailingStream full(&stream, 0);
        EXPECT_EQ(FailureOf([&] {
                      MEncoding::Writer writer(full, "utf8");
                      writer.WriteText("x");
                      if (isFailing) MRaise(MExceptionGeneral, "first");
                  }),
                  isFailing ? "0: first" : "100: Injected failure.");
    }
}

TEST(MUnicodeTest, AnyBytesSurviveTheWayThereAndBack) {
    const std::string cases[] = {
        "plain",
        "\xC5\x99 \xE2\x82\xAC \xF0\x9F\x98\x80 ab",
        "\xF4\x8F\xBF\xBF",  // the last code point
        "\xF4\x90\x80\x80",  // the one behind it
        "\xFF\xFE\x80",      // no UTF-8
        "\xC0\xAF",          // a slash in a form that is too long
        "\xED\xA0\x80",      // a surrogate
        "\xE2\x82",          // cut off
        "a\xC3",
        "\xF4\x8F\xBA\x80",  // what stands for a raw byte in a text
        std::string("a\0b", 3),
    };
    for (const std::string& bytes : cases) EXPECT_EQ(MEncodeUTF8Exact(MDecodeUTF8Exact(bytes)), bytes);
    const MString text = MDecodeUTF8Exact("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\x80");
    EXPECT_TRUE(text.IsExactly(MString::Copy(u"\u00E9\u20AC\U0001F600\U0010FE80")));
}

TEST(MUnicodeTest, ASurrogateWithoutItsPairIsReplaced) {
    const std::string replacement = "\xEF\xBF\xBD";
    const char16_t high[] = {0xD800, u'a', 0};
    const char16_t low[] = {0xDC00, 0xD801, 0};
    EXPECT_EQ(MEncodeUTF8Exact(MString::Copy(high)), replacement + "a");
    EXPECT_EQ(MEncodeUTF8Exact(MString::Copy(low)), replacement + replacement);
}

}  // namespace
