#pragma once

#include "ui/image/MColor.h"

#include <array>

/// The four channels of a pixel as numbers of 16 bits, for every processor. What the operations mean is said
/// in MPixelRowTemplate.h.
class MPixelLanes {
public:
    static MPixelLanes All(uint16_t value) { return Repeat(value, value, value, value); }
    static MPixelLanes Repeat(uint16_t blue, uint16_t green, uint16_t red, uint16_t alpha) {
        MPixelLanes lanes;
        lanes.values = {blue, green, red, alpha};
        return lanes;
    }
    static MPixelLanes Repeat(MColor color) {
        return Repeat(color.blue, color.green, color.red, color.alpha);
    }

    [[nodiscard]] MColor GetColor() const {
        return {static_cast<uint8_t>(values[0]), static_cast<uint8_t>(values[1]),
                static_cast<uint8_t>(values[2]), static_cast<uint8_t>(values[3])};
    }
    [[nodiscard]] MPixelLanes Alphas() const { return All(values[3]); }
    [[nodiscard]] MPixelLanes ToAlphas() const { return All(values[2]); }
    [[nodiscard]] MPixelLanes WithAlphas(MPixelLanes alphas) const {
        return Repeat(values[0], values[1], values[2], alphas.values[3]);
    }
    [[nodiscard]] MPixelLanes Neighbours() const {
        return Repeat(values[1], values[0], values[3], values[2]);
    }
    [[nodiscard]] MPixelLanes OtherPairs() const {
        return Repeat(values[2], values[3], values[0], values[1]);
    }

    friend MPixelLanes operator+(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x + y; });
    }
    friend MPixelLanes operator-(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x - y; });
    }
    friend MPixelLanes operator*(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x * y; });
    }
    friend MPixelLanes operator&(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x & y; });
    }
    friend MPixelLanes operator|(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x | y; });
    }
    friend MPixelLanes operator>>(MPixelLanes a, int bits) {
        return Combine(a, a, [bits](uint32_t x, uint32_t) { return x >> bits; });
    }
    friend MPixelLanes MultiplyHigh(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x * y >> 16; });
    }
    friend MPixelLanes Quotient(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x / y; });
    }
    friend MPixelLanes SubtractToZero(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](uint32_t x, uint32_t y) { return x > y ? x - y : 0; });
    }
    friend MPixelLanes Min(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return x < y ? x : y; });
    }
    friend MPixelLanes Max(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return x > y ? x : y; });
    }
    friend MPixelLanes Magnitude(MPixelLanes a) {
        return Combine(a, a, [](int16_t x, int16_t) { return x < 0 ? -x : x; });
    }
    friend MPixelLanes Signed(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return y < 0 ? -x : x; });
    }
    friend MPixelLanes Equals(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return x == y ? -1 : 0; });
    }
    friend MPixelLanes IsAbove(MPixelLanes a, MPixelLanes b) {
        return Combine(a, b, [](int16_t x, int16_t y) { return x > y ? -1 : 0; });
    }
    friend MPixelLanes Select(MPixelLanes condition, MPixelLanes whereTrue, MPixelLanes whereFalse) {
        return (condition & whereTrue) | ((MPixelLanes::All(0xFFFF) - condition) & whereFalse);
    }

private:
    template <class Function>
    static MPixelLanes Combine(MPixelLanes a, MPixelLanes b, Function function) {
        for (size_t i = 0; i < a.values.size(); ++i)
            a.values[i] = static_cast<uint16_t>(function(a.values[i], b.values[i]));
        return a;
    }

    std::array<uint16_t, 4> values;
};
