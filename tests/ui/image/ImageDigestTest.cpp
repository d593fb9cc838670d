// Pictures of all kinds against the pixels that other decoders give; scripts/generate-image-digests wrote
// these.

#include "tests/ui/image/ImageFixture.h"

#include <sstream>

TEST(ImageDigestTest, PixelsAreThoseOfOtherDecoders) {
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
