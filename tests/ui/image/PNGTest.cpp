#include "tests/support/MFaultyStreams.h"
#include "tests/ui/image/ImageFixture.h"

namespace {

constexpr const char* Damaged = "0: Error loading a PNG file.";

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
    MBitmap opaque;
    opaque.CreateOpaque(5, 3);
    opaque.EditPixels()[7] = MColor::FromRGB(1, 2, 3);
    for (const MBitmap& picture : {opaque, MMakePicture(1, 1), MMakePicture(7, 3), MMakePicture(300, 2),
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

TEST(PNGTest, APaletteIsNeededAndMayBeShortAndSizesHaveToBePossible) {
    const MBitmap bitmap = MLoadImage(&MBitmap::LoadPNG, MReadImage("short-palette.png"));
    EXPECT_EQ(bitmap.GetPixel(0, 0), MColor::FromRGB(1, 2, 3));
    EXPECT_EQ(bitmap.GetPixel(1, 0), MColor::FromRGB(4, 5, 6));
    for (const char* name : {"no-palette", "odd-palette", "cut-palette"})
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, MReadImage("refused/"s + name + ".png")),
                  "0: Error loading PNG palette.");
    for (const char* name : {"large", "largest", "negative", "empty", "one-row-more"})
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadPNG, MReadImage("refused/size-"s + name + ".png")), Damaged);
}
