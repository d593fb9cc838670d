#include "tests/ui/image/ImageFixture.h"
#include "ui/image/MAlphaMask.h"
#include "ui/image/MSysBitmap.h"

namespace {

MBitmap MakePaletted() {
    MBitmap bitmap;
    bitmap.CreatePaletted(3, 2);
    for (int32_t i = 0; i < 256; ++i)
        bitmap.EditPalette()[i] =
            MColor::FromRGB(static_cast<uint8_t>(i), 0, 1, static_cast<uint8_t>(255 - i));
    for (int32_t i = 0; i < 6; ++i) bitmap.EditIndices()[i] = static_cast<uint8_t>(i * 50);
    return bitmap;
}

constexpr const char* PalettedPixels = "000001FF 320001CD 6400019B\n96000169 C8000137 FA000105\n";

}  // namespace

TEST(MBitmapTest, AssignedBitmapsDoNotChangeTogether) {
    MBitmap first = MMakePicture(5, 4);
    MBitmap second(9, 9);
    second.Assign(first);
    const std::string before = MPixelText(first);
    second.EditRow(3)[4] = MColor();
    EXPECT_EQ(MPixelText(first), before);
    EXPECT_NE(MPixelText(second), before);

    const MBitmap paletted = MakePaletted();
    second = paletted;
    EXPECT_TRUE(second.IsPaletted());
    second.EditIndices()[0] = 7;
    EXPECT_EQ(MPixelText(paletted), PalettedPixels);
    second.Assign(second);
    EXPECT_EQ(second.GetPixel(0, 0).red, 7);
}

TEST(MBitmapTest, SizesThatCannotBeGiveAnEmptyBitmap) {
    MBitmap bitmap(2, 2);
    for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {-1, 5}, {-5, -5}}) {
        bitmap.Create(width, height);
        EXPECT_TRUE(bitmap.IsEmpty());
        EXPECT_EQ(bitmap.GetWidth(), 0);
    }
    constexpr std::pair<int32_t, int32_t> TooLarge[] = {
        {1 << 15, 1 << 14}, {1 << 16, 1 << 16}, {0x7FFFFFFF, 0x7FFFFFFF}, {1, 1 << 29}};
    for (const auto& size : TooLarge) {
        bitmap.Create(1, 1);
        EXPECT_EQ(FailureOf([&] { bitmap.Create(size.first, size.second); }), "0: Out of memory.");
        EXPECT_TRUE(bitmap.IsEmpty());
    }
    EXPECT_EQ(FailureOf([&] { bitmap.CreatePaletted(0x7FFFFFFF - 1027, 1); }), "0: Out of memory.");
    EXPECT_FALSE(bitmap.IsPaletted());
}

TEST(MBitmapTest, PalettedBitmapBecomesDirect) {
    const MBitmap paletted = MakePaletted();
    EXPECT_EQ(MPixelText(paletted), PalettedPixels);
    const MBitmap direct = paletted.ToDirect();
    EXPECT_FALSE(direct.IsPaletted());
    EXPECT_EQ(MPixelText(direct), PalettedPixels);

    MBitmap created;
    created.CreatePaletted(2, 1);
    EXPECT_EQ(MPixelText(created), "000000FF 000000FF\n");
    created.Create(2, 1);
    EXPECT_EQ(MPixelText(created), "00000000 00000000\n");
}

TEST(MBitmapTest, MaskIsTheAlphaOrTheIndices) {
    MAlphaMask mask(9, 9);
    const MBitmap picture = MMakePicture(5, 4);
    picture.ToAlphaMask(mask);
    ASSERT_EQ(mask.GetWidth(), 5);
    ASSERT_EQ(mask.GetHeight(), 4);
    EXPECT_EQ(mask.GetRow(3)[2], 250);

    MakePaletted().ToAlphaMask(mask);
    ASSERT_EQ(mask.GetWidth(), 3);
    EXPECT_EQ(mask.GetRow(1)[1], 200);

    MBitmap().ToAlphaMask(mask);
    EXPECT_TRUE(mask.IsEmpty());
}

TEST(MBitmapTest, SystemBitmapsShowThePixelsUntilTheseChange) {
    MBitmap bitmap(2, 2);
    bitmap.EditRow(0)[1] = MColor::FromRGB(200, 100, 50, 128);
    bitmap.EditRow(1)[0] = MColor::FromRGB(255, 1, 0, 255);
    const MSysBitmap& plain = bitmap.CreateSystemBitmap();
    EXPECT_EQ(&bitmap.CreateSystemBitmap(), &plain);
    EXPECT_EQ(plain.GetWidth(), 2);
    EXPECT_EQ(plain.GetPixels()[1], MColor::FromRGB(200, 100, 50, 128));

    const MSysBitmap& blended = bitmap.CreateSystemBitmapWithAlpha();
    EXPECT_NE(&blended, &plain);
    EXPECT_EQ(blended.GetPixels()[0], MColor::FromRGB(0, 0, 0, 0));
    EXPECT_EQ(blended.GetPixels()[1], MColor::FromRGB(100, 50, 25, 128));
    EXPECT_EQ(blended.GetPixels()[2], MColor::FromRGB(255, 1, 0, 255));

    bitmap.EditRow(0)[1] = MColor();
    EXPECT_EQ(bitmap.CreateSystemBitmap().GetPixels()[1], MColor());
    EXPECT_EQ(bitmap.CreateSystemBitmapWithAlpha().GetPixels()[1], MColor());

    bitmap = MakePaletted();
    EXPECT_EQ(bitmap.CreateSystemBitmap().GetPixels()[5], MColor::FromRGB(250, 0, 1, 5));
    bitmap.Clear();
    EXPECT_EQ(bitmap.CreateSystemBitmap().GetWidth(), 1);
}

TEST(MBitmapTest, SystemBitmapsGoWithTheirBitmap) {
    // Far more than the system has room for, were any of them kept.
    for (int32_t i = 0; i < 12000; ++i) {
        MBitmap bitmap(1, 1);
        bitmap.CreateSystemBitmap();
    }
}
