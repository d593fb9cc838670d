// The files in encoded/ show what MMakePicture draws, written by libjpeg's encoder in several forms, or are such that
// a decoder must refuse.

#include "tests/support/MFaultyStreams.h"
#include "tests/ui/image/ImageFixture.h"

#include <algorithm>
#include <cstdlib>

namespace {

const std::string Failed = "0: Error loading JPEG file - ";
const std::string ReadError = Failed + "read error";

MBitmap Load(const std::string& file) {
    return MLoadImage(&MBitmap::LoadJPEG, file);
}

std::string FailureOfFile(const std::string& file) {
    return MLoadFailureOf(&MBitmap::LoadJPEG, file);
}

/// The largest difference of a colour in the rows.
int32_t DifferenceOf(const MBitmap& first, const MBitmap& second, int32_t fromRow, int32_t toRow) {
    int32_t largest = 0;
    for (int32_t i = fromRow * first.GetWidth(); i < toRow * first.GetWidth(); ++i) {
        const MColor a = first.GetPixels()[i];
        const MColor b = second.GetPixels()[i];
        largest = std::max(
            {largest, std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
    }
    return largest;
}

}  // namespace

TEST(JPEGTest, RestartMarkersHealADamage) {
    const MBitmap plain = Load(MReadImage("encoded/plain.jpg"));
    EXPECT_EQ(DifferenceOf(Load(MReadImage("encoded/restarts.jpg")), plain, 0, 64), 0);
    // What is damaged between two markers stays in that row of blocks.
    const MBitmap healed = Load(MReadImage("encoded/damaged.jpg"));
    EXPECT_EQ(DifferenceOf(healed, plain, 0, 16), 0);
    EXPECT_GT(DifferenceOf(healed, plain, 16, 24), 0);
    EXPECT_EQ(DifferenceOf(healed, plain, 24, 64), 0);
}

TEST(JPEGTest, InksLookTheSameInAllForms) {
    for (const char* name : {"encoded/inks.jpg", "encoded/inks-adobe.jpg", "encoded/inks-ycck.jpg"}) {
        const MBitmap bitmap = Load(MReadImage(name));
        EXPECT_LE(DifferenceOf(bitmap, MMakePicture(32, 24), 0, 24), 12) << name;
        EXPECT_EQ(bitmap.GetPixel(31, 23).alpha, 255);
    }
}

TEST(JPEGTest, CutFilesAreReadErrorsAndSlowOnesAreNone) {
    for (const char* name : {"baseline.jpg", "progressive.jpg", "grey.jpg"}) {
        const std::string file = MReadImage(name);
        for (size_t length = 0; length < file.size(); length += BYTE_STRIDE)
            EXPECT_EQ(FailureOfFile(file.substr(0, length)), ReadError) << name << " " << length;
        MMemoryStream memory = MStreamOf(file);
        MTricklingStream slow(&memory);
        MBitmap bitmap;
        bitmap.LoadJPEG(slow);
        EXPECT_EQ(DifferenceOf(bitmap, Load(file), 0, bitmap.GetHeight()), 0);
    }
    const std::string file = MReadImage("grey.jpg");
    for (int64_t bytes = 0; bytes < static_cast<int64_t>(file.size()); bytes += 5) {
        MMemoryStream memory = MStreamOf(file);
        MFailingStream failing(&memory, bytes);
        MTricklingStream slow(&failing);
        EXPECT_EQ(MLoadFailureOf(&MBitmap::LoadJPEG, slow), ReadError);
    }
}

// Each further scan costs a file a few bytes and the decoder a pass over the whole picture.
TEST(JPEGTest, FailuresHaveTheWordsOfTheLibrary) {
    const std::pair<std::string, std::string> cases[] = {
        {"plain text", "Not a JPEG file: starts with 0x70 0x6c"},
        {"\xFF\xD8\xFF\xD9", "JPEG datastream contains no image"},
        {MReadImage("encoded/no-rows.jpg"), "Empty JPEG image (DNL not supported)"},
        {MReadImage("encoded/too-large.jpg"), "image too large"},
        {MReadImage("encoded/too-many-scans.jpg"), "too many scans"},
        {MReadTestFile(TEST_IMAGES "/jpeg/testorig12.jpg"), "Unsupported JPEG data precision 12"}};
    for (const auto& [file, words] : cases) EXPECT_EQ(FailureOfFile(file), Failed + words);
}
