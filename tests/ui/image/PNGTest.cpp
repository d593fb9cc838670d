#include "streams/hashes/MMD5Stream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/ui/image/ImageFixture.h"

#include <zlib.h>

using namespace std::string_literals;

namespace {

constexpr const char* Damaged = "0: Error loading a PNG file.";
constexpr const char* NoPalette = "0: Error loading PNG palette.";

std::string BigEndian(uint32_t word) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(word >> shift & 0xFF);
    return bytes;
}

std::string Chunk(const std::string& name, const std::string& content) {
    const std::string body = name + content;
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(body.data()), static_cast<uInt>(body.size()));
    return BigEndian(static_cast<uint32_t>(content.size())) + body + BigEndian(static_cast<uint32_t>(sum));
}

std::string Deflated(const std::string& content) {
    uLongf size = compressBound(static_cast<uLong>(content.size()));
    std::string compressed(size, '\0');
    compress(reinterpret_cast<Bytef*>(compressed.data()), &size,
             reinterpret_cast<const Bytef*>(content.data()), static_cast<uLong>(content.size()));
    compressed.resize(size);
    return compressed;
}

/// `kind` holds the bytes for depth, colour type, compression, filter and interlace.
std::string File(uint32_t width, uint32_t height, const std::string& kind, const std::string& chunks,
                 const std::string& rows) {
    return "\x89PNG\r\n\x1A\n" + Chunk("IHDR", BigEndian(width) + BigEndian(height) + kind) + chunks +
           Chunk("IDAT", Deflated(rows)) + Chunk("IEND", "");
}

const std::string Palette2Bits = "\2\3\0\0\0"s;
const std::string Direct8Bits = "\x08\2\0\0\0"s;

std::string Saved(const MBitmap& bitmap) {
    MMemoryStream stream;
    bitmap.SavePNG(stream);
    return MBytesOf(stream);
}

}  // namespace

TEST(PNGTest, SavedPictureLoadsAsTheSame) {
    for (const auto& [width, height] : {std::pair{1, 1}, {7, 3}, {300, 2}, {3, 200}, {64, 64}}) {
        const MBitmap picture = MMakePicture(width, height);
        EXPECT_EQ(MPixelText(MLoadImage(&MBitmap::LoadPNG, Saved(picture))), MPixelText(picture));
    }
    MBitmap paletted;
    paletted.CreatePaletted(2, 2);
    paletted.EditPalette()[3] = MColor::FromRGB(1, 2, 3, 4);
    paletted.EditIndices()[2] = 3;
    EXPECT_EQ(MPixelText(MLoadImage(&MBitmap::LoadPNG, Saved(paletted))), MPixelText(paletted));
}

// The file that each platform writes; a new zlib or libpng may change it.
TEST(PNGTest, SavedBytesAreTheSameEverywhere) {
    const std::string file = Saved(MMakePicture(100, 80));
    MMD5Stream hash;
    hash.Write(file.data(), static_cast<int32_t>(file.size()));
    hash.Finish();
    EXPECT_EQ(Text(hash.GetDigestText()), "503262EA94E72093DC65A45695245D83");
}

TEST(PNGTest, SavingFailsAsTheStreamDoes) {
    MMemoryStream stream;
    EXPECT_EQ(FailureOf([&] { MBitmap().SavePNG(stream); }), "0: Empty image cannot be saved to PNG.");
    EXPECT_EQ(stream.GetSize(), 0);

    const MBitmap picture = MMakePicture(60, 50);
    const auto size = static_cast<int64_t>(Saved(picture).size());
    for (int64_t bytes = 0; bytes < size; bytes += 13) {
        MMemoryStream target;
        MFailingStream failing(&target, bytes);
        EXPECT_EQ(FailureOf([&] { picture.SavePNG(failing); }), "100: Injected failure.");
    }
}

TEST(PNGTest, CutAndDamagedFilesAreRefused) {
    const std::string file = Saved(MMakePicture(9, 5));
    for (size_t length = 0; length < file.size(); ++length)
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, file.substr(0, length)), Damaged) << length;
    // Every byte of every chunk is covered by a sum.
    for (size_t i = 0; i < file.size(); ++i) {
        std::string damaged = file;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x10);
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, damaged), Damaged) << i;
    }
}

TEST(PNGTest, FailingStreamIsADamagedFile) {
    const std::string file = Saved(MMakePicture(60, 50));
    for (int64_t bytes = 0; bytes < static_cast<int64_t>(file.size()); bytes += 7) {
        MMemoryStream memory(file.data(), static_cast<int32_t>(file.size()));
        MFailingStream failing(&memory, bytes);
        MBitmap bitmap(1, 1);
        EXPECT_EQ(FailureOf([&] { bitmap.LoadPNG(failing); }), Damaged);
        EXPECT_TRUE(bitmap.IsEmpty());
    }
}

TEST(PNGTest, PaletteIsNeededAndMayBeShort) {
    const std::string palette = Chunk("PLTE", "\1\2\3\4\5\6"s);
    const std::string rows = "\0\x1B"s;  // 0, 1, 2, 3
    const MBitmap bitmap = MLoadImage(&MBitmap::LoadPNG, File(4, 1, Palette2Bits, palette, rows));
    EXPECT_EQ(bitmap.GetPixel(0, 0), MColor::FromRGB(1, 2, 3));
    EXPECT_EQ(bitmap.GetPixel(1, 0), MColor::FromRGB(4, 5, 6));

    EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, File(4, 1, Palette2Bits, "", rows)), NoPalette);
    EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, File(4, 1, Palette2Bits, Chunk("PLTE", "\1\2\3\4"), rows)),
              NoPalette);
    EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, File(4, 1, Palette2Bits, palette, rows).substr(0, 40)),
              NoPalette);
}

TEST(PNGTest, ImpossibleSizesAreRefused) {
    for (const auto& [width, height] : {std::pair{30000u, 30000u},
                                        {0x7FFFFFFFu, 0x7FFFFFFFu},
                                        {0x80000000u, 1u},
                                        {0u, 1u},
                                        {1u << 13, (1u << 13) + 1}})
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, File(width, height, Direct8Bits, "", "\0\1\2\3"s)),
                  Damaged);
}
