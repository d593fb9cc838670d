#include "tests/ui/image/ImageFixture.h"

using namespace std::string_literals;

namespace {

constexpr const char* NoHeader = "100: Invalid file contents. No TGA header present.";
constexpr const char* BadHeader = "100: Invalid file contents. Invalid TGA header.";
constexpr const char* Cut = "100: Could not read required data from stream.";

std::string Word(int32_t value) {
    return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8)};
}

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

    [[nodiscard]] std::string GetBytes() const {
        const auto byte = [](int32_t value) { return std::string(1, static_cast<char>(value)); };
        return byte(identifierLength) + byte(hasMap) + byte(imageType) + Word(mapFirst) + Word(mapCount) +
               byte(mapBits) + "\x11\x22\x33\x44" + Word(width) + Word(height) + byte(pixelBits) +
               byte(descriptor);
    }
};

std::string Load(const Header& header, const std::string& content) {
    return MPixelText(MLoadImage(&MBitmap::LoadTGA, header.GetBytes() + content));
}

std::string FailureOfHeader(const Header& header) {
    return MLoadFailureOf(&MBitmap::LoadTGA, header.GetBytes() + std::string(2000, '\1'));
}

const std::string Four24 = "\1\2\3\4\5\6\7\x08\x09\x0A\x0B\x0C"s;

}  // namespace

TEST(TGATest, DirectPixelsOfBothSizes) {
    EXPECT_EQ(Load({}, Four24), "030201FF 060504FF\n090807FF 0C0B0AFF\n");
    EXPECT_EQ(
        Load({.pixelBits = 32, .descriptor = 0x28}, "\1\2\3\0\4\5\6\x80"s + "\7\x08\x09\xFF\x0A\x0B\x0C\1"s),
        "03020100 06050480\n090807FF 0C0B0A01\n");
    EXPECT_EQ(Load({.identifierLength = 5}, "named" + Four24), Load({}, Four24));
    EXPECT_EQ(Load({.hasMap = 1, .mapCount = 300, .mapBits = 15}, std::string(600, '\7') + Four24),
              Load({}, Four24));
}

TEST(TGATest, OriginChoosesTheOrderOfRowsAndColumns) {
    EXPECT_EQ(Load({.descriptor = 0}, Four24), "090807FF 0C0B0AFF\n030201FF 060504FF\n");
    EXPECT_EQ(Load({.descriptor = 0x30}, Four24), "060504FF 030201FF\n0C0B0AFF 090807FF\n");
    EXPECT_EQ(Load({.width = 1, .height = 3, .descriptor = 0}, Four24), "090807FF\n060504FF\n030201FF\n");
}

TEST(TGATest, MappedPixels) {
    const Header header{.hasMap = 1, .imageType = 1, .mapCount = 3, .mapBits = 24, .pixelBits = 8};
    const std::string map = Four24.substr(0, 9);
    EXPECT_EQ(Load(header, map + "\2\1\0\2"s), "090807FF 060504FF\n030201FF 090807FF\n");

    // The map may begin later; what it does not hold is black.
    Header later = header;
    later.mapFirst = 253;
    EXPECT_EQ(Load(later, map + "\xFD\xFF\0\xFE"s), "030201FF 090807FF\n000000FF 060504FF\n");
    later.mapBits = 32;
    later.mapCount = 1;
    EXPECT_EQ(Load(later, "\1\2\3\4\xFD\xFD\xFD\xFC"s), "03020104 03020104\n03020104 000000FF\n");

    Header full = header;
    full.mapCount = 256;
    EXPECT_EQ(Load(full, std::string(768, '\5') + "\0\xFF\1\2"s), "050505FF 050505FF\n050505FF 050505FF\n");
}

TEST(TGATest, RunLengthForms) {
    const Header header{.imageType = 10};
    // A run over the end of a row, then two plain pixels.
    EXPECT_EQ(Load(header, "\x81\1\2\3\1\4\5\6\7\x08\x09"s), "030201FF 030201FF\n060504FF 090807FF\n");
    EXPECT_EQ(Load(header, "\0\1\2\3\x82\4\5\6"s), "030201FF 060504FF\n060504FF 060504FF\n");
    // Packets that hold more than the picture.
    EXPECT_EQ(Load(header, "\xFF\1\2\3"s), "030201FF 030201FF\n030201FF 030201FF\n");
    EXPECT_EQ(Load(header, "\x7F"s + Four24), Load({}, Four24));
    EXPECT_EQ(Load({.hasMap = 1, .imageType = 9, .mapCount = 2, .mapBits = 24, .pixelBits = 8},
                   "\1\2\3\4\5\6\x82\1\0\0"s),
              "060504FF 060504FF\n060504FF 030201FF\n");
}

TEST(TGATest, WideRows) {
    std::string content;
    for (int32_t i = 0; i < 1000 * 3; ++i) content += static_cast<char>(i * i);
    const MBitmap bitmap = MLoadImage(&MBitmap::LoadTGA, Header{.width = 500}.GetBytes() + content);
    const auto* bytes = reinterpret_cast<const uint8_t*>(content.data());
    for (int32_t i = 0; i < 1000; ++i, bytes += 3)
        ASSERT_EQ(bitmap.GetPixel(i % 500, i / 500), MColor::FromRGB(bytes[2], bytes[1], bytes[0])) << i;
}

TEST(TGATest, SizeBelowOneIsEmpty) {
    for (const Header& header : {Header{.width = 0, .height = 0}, {.width = 0}, {.height = 0}})
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadTGA, header.GetBytes()), "none");
    EXPECT_TRUE(MLoadImage(&MBitmap::LoadTGA, Header{.width = 0, .height = 0}.GetBytes()).IsEmpty());
}

TEST(TGATest, UnknownFormsAreRefused) {
    for (const int32_t type : {0, 3, 4, 8, 11, 32, 33, 34, 129, 255})
        EXPECT_EQ(FailureOfHeader({.imageType = type}), BadHeader) << type;
    for (const int32_t bits : {0, 1, 8, 15, 16, 23, 40})
        EXPECT_EQ(FailureOfHeader({.pixelBits = bits}), BadHeader) << bits;
    EXPECT_EQ(FailureOfHeader({.hasMap = 2}), BadHeader);
    EXPECT_EQ(FailureOfHeader({.width = 0xFFFF, .height = 0xFFFF}), BadHeader);

    const Header mapped{.hasMap = 1, .imageType = 1, .mapCount = 3, .mapBits = 24, .pixelBits = 8};
    EXPECT_EQ(FailureOfHeader(mapped), "none");
    for (const auto& [field, value] : {std::pair{&Header::mapCount, 257},
                                       {&Header::mapCount, 0xFFFF},
                                       {&Header::mapBits, 15},
                                       {&Header::mapBits, 16},
                                       {&Header::mapBits, 40},
                                       {&Header::mapFirst, 254},
                                       {&Header::hasMap, 0},
                                       {&Header::pixelBits, 16},
                                       {&Header::pixelBits, 24}}) {
        Header wrong = mapped;
        wrong.*field = value;
        EXPECT_EQ(FailureOfHeader(wrong), BadHeader) << value;
    }
}

TEST(TGATest, CutFilesAreRefused) {
    const std::string files[] = {
        Header{.identifierLength = 3}.GetBytes() + "abc" + Four24,
        Header{.imageType = 10}.GetBytes() + "\x81\1\2\3\1\4\5\6\7\x08\x09"s,
        Header{.hasMap = 1, .imageType = 9, .mapCount = 2, .mapBits = 24, .pixelBits = 8}.GetBytes() +
            "\1\2\3\4\5\6\x82\1\0\0"s,
    };
    for (const std::string& file : files) {
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadTGA, file), "none");
        for (size_t length = 0; length < file.size(); ++length)
            EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadTGA, file.substr(0, length)),
                      length < 18 ? NoHeader : Cut);
    }
    // A large claim costs no more than address space.
    EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadTGA, Header{.width = 8192, .height = 8192}.GetBytes() + Four24),
              Cut);
}
