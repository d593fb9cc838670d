#include "tests/support/MFaultyStreams.h"
#include "tests/ui/image/ImageFixture.h"

#include <zlib.h>

namespace {

constexpr const char* Damaged = "0: Error loading a PNG file.";
constexpr const char* NoPalette = "0: Error loading PNG palette.";

std::string BigEndian(uint32_t word) {
    const std::string bytes = MWordOf(word);
    return {bytes.rbegin(), bytes.rend()};
}

std::string Chunk(const std::string& name, const std::string& content) {
    const std::string body = name + content;
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(body.data()), static_cast<uInt>(body.size()));
    return BigEndian(static_cast<uint32_t>(content.size())) + body + BigEndian(static_cast<uint32_t>(sum));
}

/// `kind` holds the bytes for depth, colour type, compression, filter and interlace.
std::string FailureOfFile(uint32_t width, uint32_t height, const std::string& kind, const std::string& chunks,
                          const std::string& rows, MBitmap& bitmap) {
    const std::string file = "\x89PNG\r\n\x1A\n" +
                             Chunk("IHDR", BigEndian(width) + BigEndian(height) + kind) + chunks +
                             Chunk("IDAT", MDeflate(rows)) + Chunk("IEND", "");
    MMemoryStream stream = MStreamOf(file);
    return FailureOf([&] { bitmap.LoadPNG(stream); });
}

std::string Saved(const MBitmap& bitmap) {
    MMemoryStream stream;
    bitmap.SavePNG(stream);
    return MBytesOf(stream);
}

}  // namespace

TEST(PNGTest, SavedPictureLoadsAsTheSame) {
    MBitmap paletted;
    paletted.CreatePaletted(2, 2);
    paletted.EditPalette()[3] = MColor::FromRGB(1, 2, 3, 4);
    paletted.EditIndices()[2] = 3;
    for (const MBitmap& picture : {MMakePicture(1, 1), MMakePicture(7, 3), MMakePicture(300, 2),
                                   MMakePicture(3, 200), MMakePicture(64, 64), paletted})
        EXPECT_EQ(MPixelText(MLoadImage(&MBitmap::LoadPNG, Saved(picture))), MPixelText(picture));
    // The file that each platform writes; a new zlib or libpng may change it.
    EXPECT_EQ(MTestDigest(Saved(MMakePicture(100, 80))), "503262EA94E72093DC65A45695245D83");
}

TEST(PNGTest, CutAndDamagedFilesAndFailingStreamsAreRefused) {
    const std::string file = Saved(MMakePicture(9, 5));
    // Every byte of every chunk is covered by a sum.
    for (size_t i = 0; i < file.size(); ++i) {
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, file.substr(0, i)), Damaged) << i;
        std::string damaged = file;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x10);
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, damaged), Damaged) << i;
        MMemoryStream source = MStreamOf(file);
        MFailingStream failing(&source, static_cast<int64_t>(i));
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, failing), Damaged) << i;

        MMemoryStream target;
        MFailingStream full(&target, static_cast<int64_t>(i));
        EXPECT_EQ(FailureOf([&] { MMakePicture(9, 5).SavePNG(full); }), "100: Injected failure.");
    }
    MMemoryStream stream;
    EXPECT_EQ(FailureOf([&] { MBitmap().SavePNG(stream); }), "0: Empty image cannot be saved to PNG.");
    EXPECT_EQ(stream.GetSize(), 0);
}

TEST(PNGTest, PaletteIsNeededAndMayBeShort) {
    const std::string kind = "\2\3\0\0\0"s;
    const std::string rows = "\0\x1B"s;  // 0, 1, 2, 3
    MBitmap bitmap;
    EXPECT_EQ(FailureOfFile(4, 1, kind, Chunk("PLTE", "\1\2\3\4\5\6"), rows, bitmap), "none");
    EXPECT_EQ(bitmap.GetPixel(0, 0), MColor::FromRGB(1, 2, 3));
    EXPECT_EQ(bitmap.GetPixel(1, 0), MColor::FromRGB(4, 5, 6));
    for (const std::string& chunks : {""s, Chunk("PLTE", "\1\2\3\4"), Chunk("PLTE", "\1\2\3").substr(0, 8)})
        EXPECT_EQ(FailureOfFile(4, 1, kind, chunks, rows, bitmap), NoPalette);
    EXPECT_TRUE(bitmap.IsEmpty());
}

TEST(PNGTest, ImpossibleSizesAreRefused) {
    MBitmap bitmap;
    for (const auto& [width, height] : {std::pair{30000u, 30000u},
                                        {0x7FFFFFFFu, 0x7FFFFFFFu},
                                        {0x80000000u, 1u},
                                        {0u, 1u},
                                        {1u << 13, (1u << 13) + 1}})
        EXPECT_EQ(FailureOfFile(width, height, "\x08\2\0\0\0"s, "", "\0\1\2\3"s, bitmap), Damaged);
}
