// The files in encoded/ are those of MMakePicture, written by libjpeg's encoder in several forms.

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

/// With another size in the header of the frame.
std::string Resized(std::string file, char frameMarker, int32_t width, int32_t height) {
    const size_t frame = file.find("\xFF"s + frameMarker);
    for (const auto& [offset, value] : {std::pair<size_t, int32_t>{5, height}, {7, width}}) {
        file[frame + offset] = static_cast<char>(value >> 8);
        file[frame + offset + 1] = static_cast<char>(value & 0xFF);
    }
    return file;
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
    std::string file = MReadImage("encoded/restarts.jpg");
    EXPECT_EQ(DifferenceOf(Load(file), plain, 0, 64), 0);

    // Damage between the second and the third marker stays in that row of blocks.
    const size_t second = file.find("\xFF\xD1");
    const size_t third = file.find("\xFF\xD2");
    ASSERT_LT(second + 8, third);
    std::fill(file.begin() + static_cast<int64_t>(second) + 4, file.begin() + static_cast<int64_t>(third) - 2,
              '\x55');
    const MBitmap healed = Load(file);
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

TEST(JPEGTest, FailuresHaveTheWordsOfTheLibrary) {
    const std::string file = MReadImage("baseline.jpg");
    EXPECT_EQ(FailureOfFile("plain text"), Failed + "Not a JPEG file: starts with 0x70 0x6c");
    EXPECT_EQ(FailureOfFile("\xFF\xD8\xFF\xD9"s), Failed + "JPEG datastream contains no image");
    EXPECT_EQ(FailureOfFile(Resized(file, '\xC0', 0, 10)), Failed + "Empty JPEG image (DNL not supported)");
    EXPECT_EQ(FailureOfFile(Resized(file, '\xC0', 65500, 65500)), Failed + "image too large");

    // Each further scan costs the file a few bytes and the decoder a pass over the whole picture.
    std::string scans = Resized(MReadImage("progressive.jpg"), '\xC2', 4096, 4096);
    const size_t scan = scans.find("\xFF\xDA");
    const std::string head = scans.substr(scan, 2 + static_cast<size_t>(scans[scan + 3]));
    scans.resize(scan);
    for (int32_t i = 0; i < 200; ++i) scans += head;
    EXPECT_EQ(FailureOfFile(scans + "\xFF\xD9"), Failed + "too many scans");
}
