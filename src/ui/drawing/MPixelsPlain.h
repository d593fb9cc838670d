#pragma once

#include "ui/drawing/MColor.h"

#include <algorithm>
#include <array>

/// Pixels for every processor, two in a block. What the operations mean is said in MPixelRowTemplate.h.
struct MPixelsPlain {
    class Lanes;
    using Block = std::array<MColor, 2>;

    static constexpr int32_t Count = 2;

    static Block Load(const MColor* pixels) { return {pixels[0], pixels[1]}; }
    static Block LoadPart(const MColor* pixels, int32_t) { return {pixels[0], MColor()}; }
    static void Store(MColor* pixels, Block block) { std::ranges::copy(block, pixels); }
    static void StorePart(MColor* pixels, Block block, int32_t) { pixels[0] = block[0]; }
    static Block LoadMask(const uint8_t* mask) { return {Spread(mask[0]), Spread(mask[1])}; }
    static Block LoadMaskPart(const uint8_t* mask, int32_t) { return {Spread(mask[0]), MColor()}; }
    static Block Gather(const MColor* pixels, uint32_t position, uint32_t step) {
        return {pixels[position >> 16], pixels[(position + step) >> 16]};
    }
    static Block GatherPart(const MColor* pixels, uint32_t position, uint32_t, int32_t) {
        return {pixels[position >> 16], MColor()};
    }

    static Lanes GetLow(Block block);
    static Lanes GetHigh(Block block);
    static Block Pack(Lanes low, Lanes high);

private:
    static MColor Spread(uint8_t byte) { return {byte, byte, byte, byte}; }
};

/// One pixel.
class MPixelsPlain::Lanes {
public:
    static Lanes All(uint16_t value) { return Repeat(value, value, value, value); }
    static Lanes Repeat(uint16_t blue, uint16_t green, uint16_t red, uint16_t alpha) {
        Lanes lanes;
        lanes.values = {blue, green, red, alpha};
        return lanes;
    }
    static Lanes Repeat(MColor color) { return Repeat(color.blue, color.green, color.red, color.alpha); }

    [[nodiscard]] MColor GetColor() const {
        return {static_cast<uint8_t>(values[0]), static_cast<uint8_t>(values[1]),
                static_cast<uint8_t>(values[2]), static_cast<uint8_t>(values[3])};
    }
    [[nodiscard]] Lanes Alphas() const { return All(values[3]); }
    [[nodiscard]] Lanes OnColors() const { return Repeat(values[0], values[1], values[2], 0); }
    [[nodiscard]] Lanes WithAlphas(Lanes alphas) const {
        return Repeat(values[0], values[1], values[2], alphas.values[3]);
    }
    [[nodiscard]] Lanes SumOfPixel() const {
        return All(static_cast<uint16_t>(values[0] + values[1] + values[2] + values[3]));
    }

    friend Lanes operator+(Lanes a, Lanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x + y; });
    }
    friend Lanes operator-(Lanes a, Lanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x - y; });
    }
    friend Lanes operator*(Lanes a, Lanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x * y; });
    }
    friend Lanes operator&(Lanes a, Lanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x & y; });
    }
    friend Lanes operator|(Lanes a, Lanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x | y; });
    }
    friend Lanes operator>>(Lanes a, int bits) {
        return Combine(a, a, [bits](uint32_t x, uint32_t) { return x >> bits; });
    }
    friend Lanes operator<<(Lanes a, int bits) {
        return Combine(a, a, [bits](uint32_t x, uint32_t) { return x << bits; });
    }
    friend Lanes MultiplyHigh(Lanes a, Lanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x * y >> 16; });
    }
    friend Lanes SubtractToZero(Lanes a, Lanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x > y ? x - y : 0; });
    }
    friend Lanes Min(Lanes a, Lanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return x < y ? x : y; });
    }
    friend Lanes Max(Lanes a, Lanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return x > y ? x : y; });
    }
    friend Lanes Magnitude(Lanes a) {
        return Combine(a, a, [](int16_t x, int16_t) { return x < 0 ? -x : x; });
    }
    friend Lanes Signed(Lanes a, Lanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return y < 0 ? -x : x; });
    }
    friend Lanes Equals(Lanes a, Lanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return x == y ? -1 : 0; });
    }
    friend Lanes IsAbove(Lanes a, Lanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return x > y ? -1 : 0; });
    }
    friend Lanes Select(Lanes condition, Lanes whereTrue, Lanes whereFalse) {
        return (condition & whereTrue) | ((Lanes::All(0xFFFF) - condition) & whereFalse);
    }

private:
    template <class Function>
    static Lanes Combine(Lanes a, Lanes b, Function function) {
        for (size_t i = 0; i < a.values.size(); ++i)
            a.values[i] = static_cast<uint16_t>(function(a.values[i], b.values[i]));
        return a;
    }

    std::array<uint16_t, 4> values;
};

inline MPixelsPlain::Lanes MPixelsPlain::GetLow(Block block) {
    return Lanes::Repeat(block[0]);
}

inline MPixelsPlain::Lanes MPixelsPlain::GetHigh(Block block) {
    return Lanes::Repeat(block[1]);
}

inline MPixelsPlain::Block MPixelsPlain::Pack(Lanes low, Lanes high) {
    return {low.GetColor(), high.GetColor()};
}
