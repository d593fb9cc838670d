#include "tests/ui/image/ImageFixture.h"
#include "ui/image/MAlphaMask.h"
#include "ui/image/MSysBitmap.h"

#include <functional>
#include <sstream>
#include <vector>

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

    const MBitmap paletted = MakePaletted();
    second = paletted;
    second.EditIndices()[0] = 7;
    EXPECT_EQ(MPixelText(paletted), PalettedPixels);
    second.Assign(second);
    EXPECT_EQ(second.GetPixel(0, 0).red, 7);
}

TEST(MBitmapTest, SizesThatCannotBeGiveAnEmptyBitmap) {
    const MPoint sizes[] = {{0, 5}, {5, 0}, {-1, 5}, {-5, -5}, {1 << 16, 1 << 16}, {0x7FFFFFFF, 0x7FFFFFFF}};
    MBitmap bitmap;
    for (const auto create : {&MBitmap::Create, &MBitmap::CreateOpaque, &MBitmap::CreateSurface})
        for (const MPoint size : sizes) {
            bitmap.Create(1, 1);
            const std::string failure = FailureOf([&] { (bitmap.*create)(size.x, size.y); });
            EXPECT_EQ(failure, size.x > 5 ? "0: Out of memory." : "none");
            EXPECT_EQ(bitmap.GetRect(), MRect());
        }
    EXPECT_EQ(FailureOf([&] { bitmap.Create(1 << 15, 1 << 14); }), "0: Out of memory.");
    EXPECT_EQ(FailureOf([&] { bitmap.CreatePaletted(0x7FFFFFFF - 1027, 1); }), "0: Out of memory.");
}

TEST(MBitmapTest, PalettedBitmapBecomesDirectAndAMask) {
    MAlphaMask mask(9, 9);
    MMakePicture(5, 4).ToAlphaMask(mask);
    EXPECT_EQ(mask.GetRow(3)[2], 250);
    MBitmap paletted = MakePaletted();
    paletted.ToAlphaMask(mask);
    EXPECT_EQ(mask.GetRect(), (MRect{0, 0, 2, 1}));
    EXPECT_EQ(mask.GetRow(1)[1], 200);
    EXPECT_EQ(MPixelText(paletted), PalettedPixels);
    EXPECT_EQ(MPixelText(paletted.ToDirect()), PalettedPixels);
    paletted.ChangeColors([](MColor color) { return color.Inverted(); });
    EXPECT_EQ(paletted.GetPixel(2, 1), MColor::FromRGB(5, 255, 254, 5));
    paletted.CreatePaletted(2, 1);
    EXPECT_EQ(MPixelText(paletted), "000000FF 000000FF\n");
    paletted.Create(2, 1);
    EXPECT_EQ(MPixelText(paletted), "00000000 00000000\n");
}

TEST(MBitmapTest, ChangesAreMarkedAndATextureStaysWithItsBitmap) {
    MBitmap bitmap(2, 2);
    bitmap.SetTexture(std::make_unique<MObject>());
    uint32_t mark = bitmap.GetModificationMark();
    const std::function<void()> changes[] = {
        [&] { bitmap.EditRow(1)[1] = MColor(); }, [&] { bitmap = MBitmap(2, 2); },
        [&] { bitmap = MakePaletted(); },         [&] { bitmap.EditIndices()[0] = 1; },
        [&] { bitmap.CreateSurface(3, 3); },      [&] { bitmap.Clear(); }};
    for (const auto& change : changes) {
        change();
        EXPECT_NE(bitmap.GetModificationMark(), mark);
        mark = bitmap.GetModificationMark();
    }
    const MBitmap copy = bitmap;
    EXPECT_EQ(bitmap.GetModificationMark(), mark);
    EXPECT_NE(bitmap.GetTexture(), nullptr);
    EXPECT_EQ(copy.GetTexture(), nullptr);

    MAlphaMask mask(2, 2);
    mark = mask.GetModificationMark();
    mask.EditBytes()[0] = 1;
    EXPECT_NE(mask.GetModificationMark(), mark);
}

TEST(MBitmapTest, SystemBitmapsShowThePixelsUntilTheseChange) {
    MBitmap bitmap(2, 2);
    bitmap.EditRow(0)[1] = MColor::FromRGB(201, 100, 50, 128);
    const MSysBitmap& plain = bitmap.CreateSystemBitmap();
    EXPECT_EQ(&bitmap.CreateSystemBitmap(), &plain);
    EXPECT_EQ(plain.GetPixels()[1], MColor::FromRGB(201, 100, 50, 128));

    const MSysBitmap& blended = bitmap.CreateSystemBitmapWithAlpha();
    EXPECT_EQ(blended.GetPixels()[0], MColor::FromRGB(0, 0, 0, 0));
    EXPECT_EQ(blended.GetPixels()[1], MColor::FromRGB(101, 50, 25, 128));

    bitmap.EditRow(0)[1] = MColor();
    EXPECT_EQ(bitmap.CreateSystemBitmap().GetPixels()[1], MColor());
    EXPECT_EQ(bitmap.CreateSystemBitmapWithAlpha().GetPixels()[1], MColor());

    bitmap = MakePaletted();
    EXPECT_EQ(bitmap.CreateSystemBitmap().GetPixels()[5], MColor::FromRGB(250, 0, 1, 5));
    bitmap.Clear();
    EXPECT_EQ(bitmap.CreateSystemBitmap().GetWidth(), 1);
    // Far more than the system has room for, were any of them kept.
    for (int32_t i = 0; i < 12000; ++i) MBitmap(1, 1).CreateSystemBitmap();
}

TEST(MBitmapTest, ASurfaceIsItsOwnSystemBitmapAndItsCopiesAreOrdinary) {
    MBitmap surface;
    surface.CreateSurface(3, 2);
    EXPECT_TRUE(surface.IsOpaque());
    EXPECT_EQ(MPixelText(surface), "000000FF 000000FF 000000FF\n000000FF 000000FF 000000FF\n");
    const MSysBitmap& shown = surface.CreateSystemBitmap();
    EXPECT_EQ(&shown, surface.GetSharedMemory());
    surface.EditRow(1)[2] = MColor{1, 2, 3, 255};
    EXPECT_EQ(&surface.CreateSystemBitmap(), &shown);
    EXPECT_EQ(shown.GetPixels()[5], (MColor{1, 2, 3, 255}));
    EXPECT_EQ(surface.CreateSystemBitmapWithAlpha().GetPixels()[5], (MColor{1, 2, 3, 255}));

    MBitmap copy = surface;
    surface.EditRow(1)[2] = MColor();
    EXPECT_EQ(copy.GetPixel(2, 1), (MColor{1, 2, 3, 255}));
    EXPECT_EQ(copy.GetSharedMemory(), nullptr);
    EXPECT_FALSE(copy.IsOpaque());
    surface = MakePaletted();
    EXPECT_EQ(surface.GetSharedMemory(), nullptr);
    EXPECT_EQ(MPixelText(surface), PalettedPixels);

    // Where the system refuses at last, the surface is in plain memory.
    std::vector<MBitmap> many(5000);
    for (MBitmap& bitmap : many) {
        bitmap.CreateSurface(1, 1);
        bitmap.EditPixels()->red = 9;
    }
    for (const MBitmap& bitmap : many) ASSERT_EQ(bitmap.GetPixel(0, 0), MColor::FromRGB(9, 0, 0));
}

// Pictures of all kinds against what scripts/generate-image-digests wrote.
TEST(MBitmapTest, PixelsAreThoseOfOtherDecoders) {
    std::istringstream entries(MReadImage("digests.txt"));
    int32_t count = 0;
    std::string name, digest;
    for (int32_t width, height; entries >> name >> width >> height >> digest; ++count) {
        const bool isOurs = name.find('/') == std::string::npos;
        const std::string path = (isOurs ? TEST_DATA_DIRECTORY "/images/" : TEST_IMAGES "/") + name;
        const auto load = name.ends_with(".png") ? &MBitmap::LoadPNG : &MBitmap::LoadJPEG;
        const MBitmap bitmap = MLoadImage(load, MReadTestFile(MString::Copy(path.c_str())));
        EXPECT_TRUE(bitmap.GetRect() == MRect::FromSize(0, 0, width, height)) << name;
        const size_t size = static_cast<size_t>(width * height) * sizeof(MColor);
        const std::string pixels(reinterpret_cast<const char*>(bitmap.GetPixels()), size);
        EXPECT_STRCASEEQ(MTestDigest(pixels).c_str(), digest.c_str()) << name;
    }
    EXPECT_GT(count, 50);
}
