#pragma once

#include "streams/basic/MMemoryStream.h"
#include "tests/support/MTestText.h"
#include "ui/image/MBitmap.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

using MLoadOperation = void (MBitmap::*)(MStream&);

/// The bitmap that a file in memory gives.
inline MBitmap MLoadImage(MLoadOperation load, std::string_view file) {
    MMemoryStream stream(file.data(), static_cast<int32_t>(file.size()));
    MBitmap bitmap;
    (bitmap.*load)(stream);
    return bitmap;
}

/// How a file fails to load into a bitmap that held another picture, which must be gone then.
inline std::string MLoadFailureOf(MLoadOperation load, std::string_view file) {
    MMemoryStream stream(file.data(), static_cast<int32_t>(file.size()));
    MBitmap bitmap(3, 2);
    const std::string failure = FailureOf([&] { (bitmap.*load)(stream); });
    if (failure != "none") {
        EXPECT_TRUE(bitmap.IsEmpty());
        EXPECT_EQ(bitmap.GetPixels(), nullptr);
    }
    return failure;
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
    for (int32_t y = 0; y < height; ++y)
        for (int32_t x = 0; x < width; ++x)
            bitmap.EditRow(y)[x] =
                MColor::FromRGB(static_cast<uint8_t>(x * 7), static_cast<uint8_t>(y * 11),
                                static_cast<uint8_t>(x * y), static_cast<uint8_t>(255 - x - y));
    return bitmap;
}
