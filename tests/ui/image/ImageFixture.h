#pragma once

#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"
#include "ui/image/MBitmap.h"

#include <string>

using namespace std::string_literals;

using MLoadOperation = void (MBitmap::*)(MStream&);

/// The bitmap that a file in memory gives.
inline MBitmap MLoadImage(MLoadOperation load, const std::string& file) {
    MMemoryStream stream = MStreamOf(file);
    MBitmap bitmap;
    (bitmap.*load)(stream);
    return bitmap;
}

/// How loading fails into a bitmap that held another picture, which must be gone then.
inline std::string MLoadFailureOf(MLoadOperation load, MStream& stream) {
    MBitmap bitmap(3, 2);
    const std::string failure = FailureOf([&] { (bitmap.*load)(stream); });
    EXPECT_TRUE(failure == "none" || (bitmap.IsEmpty() && !bitmap.GetPixels()));
    return failure;
}
inline std::string MLoadFailureOf(MLoadOperation load, const std::string& file) {
    MMemoryStream stream = MStreamOf(file);
    return MLoadFailureOf(load, stream);
}

/// A file of tests/data/images.
inline std::string MReadImage(const std::string& name) {
    return MReadTestFile(MString::Copy((TEST_DATA_DIRECTORY "/images/" + name).c_str()));
}

/// The pixels as colour texts, separated by blanks, a line per row.
inline std::string MPixelText(const MBitmap& bitmap) {
    std::string text;
    for (int32_t y = 0; y < bitmap.GetHeight(); ++y) {
        for (int32_t x = 0; x < bitmap.GetWidth(); ++x)
            text += (x ? " " : "") + Text(bitmap.GetPixel(x, y).GetText());
        text += "\n";
    }
    return text;
}

/// A picture that uses all channels, alpha too, and has no two equal rows or columns.
inline MBitmap MMakePicture(int32_t width, int32_t height) {
    MBitmap bitmap(width, height);
    const auto byte = [](int32_t value) { return static_cast<uint8_t>(value); };
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            bitmap.EditRow(y)[x] = {byte(x * y), byte(y * 11), byte(x * 7), byte(255 - x - y)};
    return bitmap;
}
