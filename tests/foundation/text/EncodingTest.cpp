#include "foundation/text/encodings/MEncodingReader.h"
#include "foundation/text/encodings/MEncodingTables.h"
#include "foundation/text/encodings/MEncodingWriter.h"
#include "streams/basic/MMemoryStream.h"

#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <string_view>
#include <tuple>

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

std::string Encoded(const char* encoding, const char16_t* text) {
    return MBytesOf(MEncoding::FindCodec(encoding).Encode(Wide(text), false));
}

/// The lines of a stream, each with a bar behind it, after which there must be nothing left.
std::string LinesOf(MStream& stream, const char* encoding) {
    MEncoding::Reader reader(stream, encoding);
    std::string lines;
    for (MString line; reader.ReadLine(line);) lines += Text(line) + "|";
    EXPECT_EQ(FailureOf([&] { (void)reader.ReadByte(); }), "100: No more data in source stream.");
    return lines;
}

TEST(EncodingTest, NamesLeadToCodecsIgnoringCase) {
    const std::pair<const char*, const char*> cases[] = {
        {"LATIN2", "ISO-8859-2"},   {"utf-8", "utf8"},
        {"UTF-16", "utf16"},        {"", "ascii"},
        {"cp1252", "windows-1252"}, {"iso-8859-1", "windows-1252"}};
    for (const auto& [name, codec] : cases) EXPECT_EQ(Text(MEncoding::FindCodec(name).GetName()), codec);
}

TEST(EncodingTest, TablesHoldThePublishedCharacters) {
    const std::tuple<const char*, const char*, char16_t> cases[] = {
        {"KOI8-R", "\xC1", 0x0430},      {"greek", "\xE1", 0x03B1},     {"hebrew", "\xE0", 0x05D0},
        {"CP866", "\x80", 0x0410},       {"CP1250", "\xE8", 0x010D},    {"ISO-8859-1", "\x80", 0x20AC},
        {"Apple Roman", "\x8A", 0x00E4}, {"hp-roman8", "\xA1", 0x00C0}, {"CP1252", "\x81", 0x0081}};
    for (const auto& [encoding, byte, unit] : cases) {
        const char16_t expected[] = {unit, 0};
        EXPECT_EQ(Text(MEncoding::FindCodec(encoding).Decode(byte)), Text(Wide(expected))) << encoding;
    }
    EXPECT_EQ(Encoded("windows-1252", u"\u20AC\u4E00x"), "\x80x");
    EXPECT_TRUE(MEncoding::FindCodec("arabic").Decode("\xA1").IsEmpty());
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

TEST(EncodingTest, UTF8DecodingForgivesInItsOwnWay) {
    const std::pair<std::string_view, std::u16string_view> cases[] = {
        {"\357\273\277A", u"A"},
        {"\303AB", u"\001B"},
        {"\200\277x", u"x"},
        {"\360\237\230\200", u"\U0001F600"},
        {"\301\201", u"A"},
        {"\342\202", u""},
        {"\377\376a", u"a"},
        {"ab\0c"sv, u"ab"},
        {"\303\0c"sv, u"\001c"},
        {"\355\240\200|\365\242\242\242|\364\217\277\277", u"\001|\001|\U0010FFFF"},
        {"exactly sixteen.\303\251", u"exactly sixteen.\u00E9"},
        {"a run of sixteen\0hidden"sv, u"a run of sixteen"}};
    for (const auto& [bytes, units] : cases)
        EXPECT_EQ(Text(MEncoding::GetUTF8Codec().Decode(bytes)), Text(Wide(std::u16string(units).c_str())));
}

TEST(EncodingTest, UTF8EncodingDropsWhatFollowsAPair) {
    const char16_t loneHigh[] = {0xD83D, 'a', 'b', 0};
    const char16_t loneLow[] = {'x', 0xDE00, 'a', 0xD83D, 0};
    const std::pair<const char16_t*, const char*> cases[] = {{u"\u00E9\u20AC", "\303\251\342\202\254"},
                                                             {u"\U0001F600ab", "\360\237\230\200b"},
                                                             {u"\U0001F600", "\360\237\230\200"},
                                                             {loneHigh, "b"},
                                                             {loneLow, "xa"},
                                                             {u"\U0010FEE9abc", "\351c"},
                                                             {u"\U0010FE00ab", "\364\217\270\200b"}};
    for (const auto& [text, bytes] : cases) EXPECT_EQ(Encoded("utf8", text), bytes);
    EXPECT_EQ(MBytesOf(MEncoding::GetUTF8Codec().Encode("", true)), std::string(1, '\0'));
}

TEST(EncodingTest, ReaderSplitsLinesAcrossItsBuffer) {
    const std::string longLine(5000, 'x');
    const std::string bytes = "\357\273\277first\r\n\n" + longLine + "\0zero\n"s;
    MMemoryStream stream = MStreamOf(bytes);
    EXPECT_EQ(LinesOf(stream, "utf-8"), "first||" + longLine + "|zero|");
}

TEST(EncodingTest, UTF16StreamsCarryASignature) {
    MMemoryStream stream;
    {
        MEncoding::Writer writer(stream, "utf16");
        writer.WriteLine(Wide(u"a\u20AC"));
        writer.WriteText(MString("b"));
    }
    EXPECT_EQ(MBytesOf(stream), "\377\376a\0\254\040\n\0b\0"s);
    stream.Rewind();
    EXPECT_EQ(LinesOf(stream, "utf-16"), "a\xE2\x82\xAC|b|");
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
    // The last code point and the one behind it, a form that is too long, a surrogate, one cut off, and what
    // stands for a raw byte in a text.
    std::string bytes("a\0\364\217\277\277\364\220\200\200\300\257\355\240\200\342\202\364\217\272\200", 21);
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second)
            bytes += {static_cast<char>(first), static_cast<char>(second)};
    EXPECT_EQ(MEncodeUTF8Exact(MDecodeUTF8Exact(bytes)), bytes);
    EXPECT_TRUE(MDecodeUTF8Exact("\303\251\342\202\254\360\237\230\200\200")
                    .IsExactly(Wide(u"\u00E9\u20AC\U0001F600\U0010FE80")));

    // A surrogate without its pair is replaced.
    const std::string replacement = "\xEF\xBF\xBD";
    const char16_t high[] = {0xD800, u'a', 0};
    const char16_t low[] = {0xDC00, 0xD801, 0};
    EXPECT_EQ(MEncodeUTF8Exact(MString::Copy(high)), replacement + "a");
    EXPECT_EQ(MEncodeUTF8Exact(MString::Copy(low)), replacement + replacement);
}

}  // namespace
