#pragma once

#include "tests/support/MTestBytes.h"
#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/image/MAlphaMask.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <string>

constexpr MColor White{255, 255, 255, 255};
constexpr uint8_t Opaque = 255;

/// Arguments that are the same in each run and on each platform.
class MTestRandom {
public:
    explicit MTestRandom(uint32_t seed) : engine(seed) {}

    /// Both ends are included.
    [[nodiscard]] int32_t Get(int32_t least, int32_t most) {
        return least + static_cast<int32_t>(engine() % static_cast<uint32_t>(most - least + 1));
    }
    [[nodiscard]] double GetDouble(int32_t least, int32_t most) {
        return Get(least * 1000, most * 1000) / 1000.0;
    }
    [[nodiscard]] uint8_t GetByte() { return static_cast<uint8_t>(Get(0, 255)); }
    [[nodiscard]] MColor GetColor() { return {GetByte(), GetByte(), GetByte(), GetByte()}; }
    [[nodiscard]] MDrawMode GetMode() { return static_cast<MDrawMode>(Get(0, MColorOpCount - 1)); }
    [[nodiscard]] MPoint GetPoint() { return {Get(-20, 80), Get(-20, 60)}; }
    [[nodiscard]] MPointF GetPointF() { return {GetDouble(-20, 80), GetDouble(-20, 60)}; }
    [[nodiscard]] MRect GetRect() {
        const MPoint first = GetPoint();
        return MRect::FromSize(first.x, first.y, Get(0, 60), Get(0, 40));
    }

private:
    std::mt19937 engine;
};

/// Bitmaps and masks in which no two pixels are likely to be the same.
inline MBitmap MMakeNoise(int32_t width, int32_t height, uint32_t seed) {
    const std::string bytes = MTestNoise(static_cast<size_t>(width * height) * sizeof(MColor), seed);
    MBitmap bitmap(width, height);
    std::memcpy(bitmap.EditPixels(), bytes.data(), bytes.size());
    return bitmap;
}
inline MAlphaMask MMakeMask(int32_t width, int32_t height, uint32_t seed) {
    const std::string bytes = MTestNoise(static_cast<size_t>(width * height), seed);
    MAlphaMask mask(width, height);
    std::memcpy(mask.EditBytes(), bytes.data(), bytes.size());
    return mask;
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

/// All primitives but text, by a number, with arguments by chance.
constexpr int32_t MTestPrimitiveCount = 31;
void MPaintTestPrimitive(int32_t number, MDrawer& drawer, MTestRandom& random);
