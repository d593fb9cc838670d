// Usage: pixel-speed
//
// Prints how fast the software drawer paints on this platform, a line for each primitive: its name and
// million pixels a second, the best of some rounds. scripts/bench-wine compares the platforms by it.

#include "foundation/text/MUnicode.h"
#include "ui/drawing/MDrawerToMBitmap.h"
#include "ui/image/MAlphaMask.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

namespace {

constexpr int Rounds = 15;
constexpr int32_t Width = 750;
constexpr int32_t Height = 400;
constexpr int Repetitions = 30;
constexpr MColor Color = MColor::FromRGB(200, 60, 20, 128);

template <class Pixels>
void FillWithNoise(Pixels* pixels, int64_t size) {
    auto* bytes = reinterpret_cast<uint8_t*>(pixels);
    uint32_t state = 1;
    for (int64_t i = 0; i < size; ++i)
        bytes[i] = static_cast<uint8_t>((state = state * 1664525 + 1013904223) >> 24);
}

/// In seconds, the shortest of all rounds: what else the machine does only makes it longer.
double Measure(const std::function<void()>& paint) {
    using Clock = std::chrono::steady_clock;
    double shortest = 1e9;
    for (int round = 0; round < Rounds; ++round) {
        const auto start = Clock::now();
        for (int i = 0; i < Repetitions; ++i) paint();
        shortest = std::min(shortest, std::chrono::duration<double>(Clock::now() - start).count());
    }
    return shortest;
}

void Report(const char* name, const std::function<void()>& paint) {
    std::printf("%s\t%.1f\n", name, double(Width) * Height * Repetitions / Measure(paint) / 1e6);
}

}  // namespace

int main() {
    MBitmap bitmap(Width, Height);
    MBitmap picture(Width, Height);
    MAlphaMask mask(Width, Height);
    FillWithNoise(picture.EditPixels(), int64_t{Width} * Height * 4);
    FillWithNoise(mask.EditBytes(), int64_t{Width} * Height);
    MDrawerToMBitmap drawer(bitmap);
    const MRect all = bitmap.GetRect();
    const MRect part = MRect::FromSize(0, 0, Width * 2 / 3, Height * 2 / 3);

    Report("fill", [&] { drawer.FillRectangle(all, Color, MDrawMode::Alphablend); });
    Report("mask", [&] { drawer.AlphaMask(all, mask, {0, 0}, Color, MDrawMode::Alphablend); });
    Report("stretch", [&] { drawer.StretchBlt(all, picture, part, 255, MDrawMode::Alphablend); });
    for (int32_t index = 1; index < MColorOpCount; ++index) {
        const auto mode = static_cast<MDrawMode>(index);
        const std::string name = "blit, " + MEncodeUTF8Exact(MGetColorOpName(mode));
        Report(name.c_str(), [&] { drawer.BitBltWhole(picture, {0, 0}, 255, mode); });
    }
    return 0;
}
