#include "tests/ui/image/ImageFixture.h"

namespace {

constexpr const char* NoHeader = "100: Invalid file contents. No TGA header present.";
constexpr const char* BadHeader = "100: Invalid file contents. Invalid TGA header.";
constexpr const char* Cut = "100: Could not read required data from stream.";

/// The fields of a header, by default of 2 by 2 direct pixels of 24 bits from the top.
struct Header {
    int32_t identifierLength = 0;
    int32_t hasMap = 0;
    int32_t imageType = 2;
    int32_t mapFirst = 0;
    int32_t mapCount = 0;
    int32_t mapBits = 0;
    int32_t width = 2;
    int32_t height = 2;
    int32_t pixelBits = 24;
    int32_t descriptor = 0x20;

    [[nodiscard]] std::string With(const std::string& content) const {
        return MWordOf(identifierLength, 1) + MWordOf(hasMap, 1) + MWordOf(imageType, 1) +
               MWordOf(mapFirst, 2) + MWordOf(mapCount, 2) + MWordOf(mapBits, 1) + "\x11\x22\x33\x44" +
               MWordOf(width, 2) + MWordOf(height, 2) + MWordOf(pixelBits, 1) + MWordOf(descriptor, 1) +
               content;
    }
};

std::string FailureOfHeader(const Header& header) {
    return MLoadFailureOf(&MBitmap::LoadTGA, header.With(std::string(2000, '\1')));
}

Header MapOf(int32_t first, int32_t count, int32_t bits, int32_t imageType = 1) {
    return {0, 1, imageType, first, count, bits, 2, 2, 8};
}

const Header Mapped = MapOf(0, 3, 24);
const Header RunLength{.imageType = 10};
const Header MappedRuns = MapOf(0, 2, 24, 9);
const std::string Four24 = "\1\2\3\4\5\6\7\x08\x09\x0A\x0B\x0C"s;
const std::string Map24 = Four24.substr(0, 9);

}  // namespace

TEST(TGATest, LoadsAllForms) {
    const std::string plain = "030201FF 060504FF\n090807FF 0C0B0AFF\n";
    const std::pair<std::string, std::string> cases[] = {
        {Header().With(Four24), plain},
        {Header{.identifierLength = 5}.With("named" + Four24), plain},
        {Header{.hasMap = 1, .mapCount = 300, .mapBits = 15}.With(std::string(600, '\7') + Four24), plain},
        {Header{.pixelBits = 32, .descriptor = 0x28}.With("\1\2\3\0\4\5\6\x80\7\x08\x09\xFF\x0A\x0B\x0C\1"s),
         "03020100 06050480\n090807FF 0C0B0A01\n"},
        // The origin chooses the order of rows and columns.
        {Header{.descriptor = 0}.With(Four24), "090807FF 0C0B0AFF\n030201FF 060504FF\n"},
        {Header{.descriptor = 0x30}.With(Four24), "060504FF 030201FF\n0C0B0AFF 090807FF\n"},
        {Header{.width = 1, .height = 3, .descriptor = 0}.With(Four24), "090807FF\n060504FF\n030201FF\n"},
        // The map may begin later; what it does not hold is black.
        {Mapped.With(Map24 + "\2\1\0\2"s), "090807FF 060504FF\n030201FF 090807FF\n"},
        {MapOf(253, 3, 24).With(Map24 + "\xFD\xFF\0\xFE"s), "030201FF 090807FF\n000000FF 060504FF\n"},
        {MapOf(253, 1, 32).With("\1\2\3\4\xFD\xFD\xFD\xFC"s), "03020104 03020104\n03020104 000000FF\n"},
        {MapOf(0, 256, 24).With(std::string(768, '\5') + "\0\xFF\1\2"s),
         "050505FF 050505FF\n050505FF 050505FF\n"},
        // A run over the end of a row, then two plain pixels; packets that hold more than the picture.
        {RunLength.With("\x81\1\2\3\1\4\5\6\7\x08\x09"s), "030201FF 030201FF\n060504FF 090807FF\n"},
        {RunLength.With("\0\1\2\3\x82\4\5\6"s), "030201FF 060504FF\n060504FF 060504FF\n"},
        {RunLength.With("\xFF\1\2\3"s), "030201FF 030201FF\n030201FF 030201FF\n"},
        {RunLength.With("\x7F"s + Four24), plain},
        {MappedRuns.With("\1\2\3\4\5\6\x82\1\0\0"s), "060504FF 060504FF\n060504FF 030201FF\n"},
        {Header{.width = 0}.With(""), ""},
        {Header{.height = 0}.With(""), ""}};
    for (const auto& [file, pixels] : cases)
        EXPECT_EQ(MPixelText(MLoadImage(&MBitmap::LoadTGA, file)), pixels) << testing::PrintToString(file);

    // Rows that are wider than what is read at once.
    const std::string content = MTestNoise(3000);
    const MBitmap wide = MLoadImage(&MBitmap::LoadTGA, Header{.width = 500}.With(content));
    const auto* bytes = reinterpret_cast<const uint8_t*>(content.data());
    for (int32_t i = 0; i < 1000; ++i, bytes += 3)
        ASSERT_EQ(wide.GetPixel(i % 500, i / 500), MColor::FromRGB(bytes[2], bytes[1], bytes[0])) << i;
}

TEST(TGATest, UnknownFormsAreRefused) {
    for (const int32_t type : {0, 3, 4, 8, 11, 32, 33, 34, 129, 255})
        EXPECT_EQ(FailureOfHeader({.imageType = type}), BadHeader) << type;
    for (const int32_t bits : {0, 1, 8, 15, 16, 23, 40})
        EXPECT_EQ(FailureOfHeader({.pixelBits = bits}), BadHeader) << bits;
    EXPECT_EQ(FailureOfHeader({.hasMap = 2}), BadHeader);
    EXPECT_EQ(FailureOfHeader({.width = 0xFFFF, .height = 0xFFFF}), BadHeader);

    EXPECT_EQ(FailureOfHeader(Mapped), "none");
    using Field = int32_t Header::*;
    const std::pair<Field, int32_t> wrongs[] = {
        {&Header::mapCount, 257}, {&Header::mapCount, 0xFFFF}, {&Header::mapBits, 15},
        {&Header::mapBits, 16},   {&Header::mapBits, 40},      {&Header::mapFirst, 254},
        {&Header::hasMap, 0},     {&Header::pixelBits, 16},    {&Header::pixelBits, 24}};
    for (const auto& [field, value] : wrongs) {
        Header wrong = Mapped;
        wrong.*field = value;
        EXPECT_EQ(FailureOfHeader(wrong), BadHeader) << value;
    }
}

TEST(TGATest, CutFilesAreRefused) {
    for (const std::string& file :
         {Header{.identifierLength = 3}.With("abc" + Four24), RunLength.With("\x81\1\2\3\1\4\5\6\7\x08\x09"s),
          MappedRuns.With("\1\2\3\4\5\6\x82\1\0\0"s)}) {
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadTGA, file), "none");
        for (size_t length = 0; length < file.size(); ++length)
            EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadTGA, file.substr(0, length)),
                      length < 18 ? NoHeader : Cut);
    }
    // A large claim costs no more than address space.
    EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadTGA, Header{.width = 8192, .height = 8192}.With(Four24)), Cut);
}
