#include "tests/support/MFaultyStreams.h"
#include "tests/support/MScratch.h"
#include "tests/ui/image/ImageFixture.h"
#include "tests/ui/image/JPEGFile.h"

#include <algorithm>
#include <cstdlib>

using namespace std::string_literals;

namespace {

constexpr const char* ReadError = "0: Error loading JPEG file - read error";

std::string ReadData(const char* name) {
    return MReadTestFile(MString::Copy((TEST_DATA_DIRECTORY "/images/"s + name).c_str()));
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

/// The largest difference of a channel in the rows.
int32_t DifferenceOf(const MBitmap& first, const MBitmap& second, int32_t fromRow, int32_t toRow) {
    int32_t largest = 0;
    for (int32_t y = fromRow; y < toRow; ++y)
        for (int32_t x = 0; x < first.GetWidth(); ++x) {
            const MColor a = first.GetPixel(x, y);
            const MColor b = second.GetPixel(x, y);
            largest = std::max({largest, std::abs(a.red - b.red), std::abs(a.green - b.green),
                                std::abs(a.blue - b.blue), std::abs(a.alpha - b.alpha)});
        }
    return largest;
}

}  // namespace

TEST(JPEGTest, RestartMarkersHealADamage) {
    const MBitmap picture = MMakePicture(64, 64);
    const MBitmap plain = MLoadImage(&MBitmap::LoadJPEG, MEncodeJPEG(picture, {}));
    std::string file = MEncodeJPEG(picture, {.restartRows = 1});
    EXPECT_EQ(DifferenceOf(MLoadImage(&MBitmap::LoadJPEG, file), plain, 0, 64), 0);

    // Damage between the second and the third marker stays in that row of blocks.
    const size_t second = file.find("\xFF\xD1");
    const size_t third = file.find("\xFF\xD2");
    ASSERT_LT(second + 8, third);
    for (size_t i = second + 4; i < third - 2; ++i) file[i] = '\x55';
    const MBitmap healed = MLoadImage(&MBitmap::LoadJPEG, file);
    EXPECT_EQ(DifferenceOf(healed, plain, 0, 16), 0);
    EXPECT_GT(DifferenceOf(healed, plain, 16, 24), 0);
    EXPECT_EQ(DifferenceOf(healed, plain, 24, 64), 0);
}

TEST(JPEGTest, InksLookTheSameInBothForms) {
    const MBitmap picture = MMakePicture(32, 24);
    for (const bool isAdobe : {false, true})
        for (const MJPEGColors colors : {MJPEGColors::CMYK, MJPEGColors::YCCK}) {
            if (colors == MJPEGColors::YCCK && !isAdobe) continue;
            const std::string file = MEncodeJPEG(picture, {.colors = colors, .isAdobe = isAdobe});
            EXPECT_LE(DifferenceOf(MLoadImage(&MBitmap::LoadJPEG, file), MOpaque(picture), 0, 24), 12)
                << isAdobe;
        }
}

TEST(JPEGTest, SlowStreamGivesTheSame) {
    const std::string file = ReadData("progressive.jpg");
    MMemoryStream memory(file.data(), static_cast<int32_t>(file.size()));
    MTricklingStream slow(&memory);
    MBitmap bitmap;
    bitmap.LoadJPEG(slow);
    EXPECT_EQ(MPixelText(bitmap), MPixelText(MLoadImage(&MBitmap::LoadJPEG, file)));
}

TEST(JPEGTest, CutFilesAreReadErrors) {
    for (const char* name : {"baseline.jpg", "progressive.jpg", "grey.jpg"}) {
        const std::string file = ReadData(name);
        for (size_t length = 0; length < file.size(); ++length)
            EXPECT_EQ(FailureOfFile(file.substr(0, length)), ReadError) << name << " " << length;
    }
    const std::string file = ReadData("grey.jpg");
    for (int64_t bytes = 0; bytes < static_cast<int64_t>(file.size()); bytes += 5) {
        MMemoryStream memory(file.data(), static_cast<int32_t>(file.size()));
        MFailingStream failing(&memory, bytes);
        MTricklingStream slow(&failing);
        MBitmap bitmap(1, 1);
        EXPECT_EQ(FailureOf([&] { bitmap.LoadJPEG(slow); }), ReadError);
        EXPECT_TRUE(bitmap.IsEmpty());
    }
}

TEST(JPEGTest, FailuresHaveTheWordsOfTheLibrary) {
    EXPECT_EQ(FailureOfFile("plain text"),
              "0: Error loading JPEG file - Not a JPEG file: starts with 0x70 0x6c");
    EXPECT_EQ(FailureOfFile("\xFF\xD8\xFF\xD9"s),
              "0: Error loading JPEG file - JPEG datastream contains no image");
    EXPECT_EQ(FailureOfFile(Resized(ReadData("baseline.jpg"), '\xC0', 0, 10)),
              "0: Error loading JPEG file - Empty JPEG image (DNL not supported)");
}

TEST(JPEGTest, LargePicturesAndEndlessScansAreRefused) {
    EXPECT_EQ(FailureOfFile(Resized(ReadData("baseline.jpg"), '\xC0', 65500, 65500)),
              "0: Error loading JPEG file - image too large");

    // Each further scan costs the file a few bytes and the decoder a pass over the whole picture.
    std::string file =
        Resized(MEncodeJPEG(MMakePicture(16, 16), {.colors = MJPEGColors::Grey, .isProgressive = true}),
                '\xC2', 4096, 4096);
    const size_t scan = file.find("\xFF\xDA");
    const std::string head = file.substr(scan, 10);
    file.resize(scan);
    for (int32_t i = 0; i < 200; ++i) file += head;
    EXPECT_EQ(FailureOfFile(file + "\xFF\xD9"), "0: Error loading JPEG file - too many scans");
}
