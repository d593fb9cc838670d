#pragma once

#include "tests/support/MTestBytes.h"
#include "ui/drawing/MDrawerToMBitmap.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

constexpr MColor White{255, 255, 255, 255};
constexpr uint8_t Opaque = 255;

/// A bitmap in which no two pixels are likely to be the same.
inline MBitmap MMakeNoise(int32_t width, int32_t height, uint32_t seed) {
    const std::string bytes = MTestNoise(static_cast<size_t>(width * height) * sizeof(MColor), seed);
    MBitmap bitmap(width, height);
    std::memcpy(bitmap.EditPixels(), bytes.data(), bytes.size());
    return bitmap;
}

/// Where two bitmaps of one size differ inside a rectangle or, with false, outside of it: the first place, or nothing.
inline std::string MFindDifference(const MBitmap& left, const MBitmap& right,
                                   const MRect& rect = {0, 0, 999, 999}, bool inside = true) {
    for (int32_t y = 0; y < left.GetHeight(); ++y)
        for (int32_t x = 0; x < left.GetWidth(); ++x)
            if (rect.Contains({x, y}) == inside && left.GetPixel(x, y) != right.GetPixel(x, y))
                return "at " + std::to_string(x) + ", " + std::to_string(y);
    return "";
}
