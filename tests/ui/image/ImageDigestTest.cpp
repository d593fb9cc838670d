// Pictures of all kinds against the pixels that other decoders give; scripts/generate-image-digests wrote
// these.

#include "streams/hashes/MMD5Stream.h"
#include "tests/support/MScratch.h"
#include "tests/ui/image/ImageFixture.h"

#include <sstream>

namespace {

struct Entry {
    std::string name;
    int32_t width = 0;
    int32_t height = 0;
    std::string digest;
};

std::string ReadData(const std::string& name) {
    const std::string folder =
        name.find('/') == std::string::npos ? TEST_DATA_DIRECTORY "/images/" : TEST_IMAGES "/";
    return MReadTestFile(MString::Copy((folder + name).c_str()));
}

std::string DigestOf(const MBitmap& bitmap) {
    MMD5Stream hash;
    hash.Write(bitmap.GetPixels(), bitmap.GetWidth() * bitmap.GetHeight() * 4);
    hash.Finish();
    return Text(hash.GetDigestText().ToLower());
}

MLoadOperation LoadOperationFor(const std::string& name) {
    return name.ends_with(".png") ? &MBitmap::LoadPNG : &MBitmap::LoadJPEG;
}

}  // namespace

TEST(ImageDigestTest, PixelsAreThoseOfOtherDecoders) {
    std::istringstream entries(ReadData("digests.txt"));
    int32_t count = 0;
    for (Entry entry; entries >> entry.name >> entry.width >> entry.height >> entry.digest; ++count) {
        SCOPED_TRACE(entry.name);
        const MBitmap bitmap = MLoadImage(LoadOperationFor(entry.name), ReadData(entry.name));
        EXPECT_EQ(bitmap.GetWidth(), entry.width);
        EXPECT_EQ(bitmap.GetHeight(), entry.height);
        EXPECT_EQ(DigestOf(bitmap), entry.digest);
    }
    EXPECT_GT(count, 50);
}

TEST(ImageDigestTest, PictureOfTwelveBitsIsRefused) {
    EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadJPEG, ReadData("jpeg/testorig12.jpg")),
              "0: Error loading JPEG file - Unsupported JPEG data precision 12");
}
