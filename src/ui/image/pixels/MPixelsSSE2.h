#pragma once

#include "ui/image/MColor.h"

#include <cstring>
#include <emmintrin.h>

/// Pixels in vectors of 128 bits, four in a block. What the operations mean is said in MPixelRowTemplate.h.
struct MPixelsSSE2 {
    class Lanes;
    struct Block {
        __m128i bytes;
    };

    static constexpr int32_t Count = 4;

    static Block Load(const MColor* pixels) {
        return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels))};
    }
    static Block LoadPart(const MColor* pixels, int32_t count) {
        if (count == 1) return {LoadOne(pixels)};
        const __m128i two = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pixels));
        return {count == 2 ? two : _mm_unpacklo_epi64(two, LoadOne(pixels + 2))};
    }
    static void Store(MColor* pixels, Block block) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), block.bytes);
    }
    static void StorePart(MColor* pixels, Block block, int32_t count) {
        if (count == 1) return StoreOne(pixels, block.bytes);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(pixels), block.bytes);
        if (count == 3) StoreOne(pixels + 2, _mm_unpackhi_epi64(block.bytes, block.bytes));
    }
    static Lanes LoadMask(const uint8_t* mask);
    static Lanes LoadMaskPart(const uint8_t* mask, int32_t count);
    static Block Gather(const MColor* pixels, uint32_t position, uint32_t step) {
        const auto load = [&](uint32_t i) { return LoadOne(pixels + ((position + i * step) >> 16)); };
        return {
            _mm_unpacklo_epi64(_mm_unpacklo_epi32(load(0), load(1)), _mm_unpacklo_epi32(load(2), load(3)))};
    }
    static Block GatherPart(const MColor* pixels, uint32_t position, uint32_t step, int32_t count) {
        MColor part[Count];
        for (int32_t i = 0; i < count; ++i, position += step) part[i] = pixels[position >> 16];
        return LoadPart(part, count);
    }

    static bool AreOpaque(Block block) {
        return (_mm_movemask_epi8(_mm_cmpeq_epi8(block.bytes, _mm_set1_epi8(-1))) & 0x8888) == 0x8888;
    }
    static bool AreTransparent(Block block) {
        return (_mm_movemask_epi8(_mm_cmpeq_epi8(block.bytes, _mm_setzero_si128())) & 0x8888) == 0x8888;
    }
    static Block SubtractOne(Block block) { return {_mm_subs_epu8(block.bytes, _mm_set1_epi8(1))}; }
    static Block WithAlphasOf(Block block, Block alphas) {
        const __m128i colors = _mm_set1_epi32(0x00FFFFFF);
        return {_mm_or_si128(_mm_and_si128(colors, block.bytes), _mm_andnot_si128(colors, alphas.bytes))};
    }

    static Lanes GetLow(Block block);
    static Lanes GetHigh(Block block);
    static Block Pack(Lanes low, Lanes high);
    static Lanes GetAlphas(Block block);
    static Lanes SpreadLow(Lanes numbers);
    static Lanes SpreadHigh(Lanes numbers);

private:
    static __m128i LoadOne(const MColor* pixel) {
        return _mm_cvtsi32_si128(static_cast<int32_t>(pixel->GetWord()));
    }
    static void StoreOne(MColor* pixel, __m128i bytes) {
        *pixel = MColor::FromWord(static_cast<uint32_t>(_mm_cvtsi128_si32(bytes)));
    }
    static Lanes Widen(int32_t bytes);
};

class MPixelsSSE2::Lanes {
public:
    explicit Lanes(__m128i newValues) : values(newValues) {}

    static Lanes All(uint16_t value) { return Lanes(_mm_set1_epi16(static_cast<int16_t>(value))); }
    static Lanes Repeat(int16_t blue, int16_t green, int16_t red, int16_t alpha) {
        return Lanes(_mm_setr_epi16(blue, green, red, alpha, blue, green, red, alpha));
    }
    static Lanes Repeat(MColor color) { return Repeat(color.blue, color.green, color.red, color.alpha); }

    [[nodiscard]] __m128i GetValues() const { return values; }
    [[nodiscard]] Lanes Alphas() const {
        return Lanes(_mm_shufflehi_epi16(_mm_shufflelo_epi16(values, 0xFF), 0xFF));
    }
    [[nodiscard]] Lanes ToAlphas() const { return Lanes(_mm_slli_epi64(values, 16)); }
    [[nodiscard]] Lanes WithAlphas(Lanes alphas) const {
        return Select(Repeat(-1, -1, -1, 0), *this, alphas);
    }
    [[nodiscard]] Lanes Neighbours() const {
        return Lanes(_mm_shufflehi_epi16(_mm_shufflelo_epi16(values, 0xB1), 0xB1));
    }
    [[nodiscard]] Lanes OtherPairs() const { return Lanes(_mm_shuffle_epi32(values, 0xB1)); }

    friend Lanes operator+(Lanes a, Lanes b) { return Lanes(_mm_add_epi16(a.values, b.values)); }
    friend Lanes operator-(Lanes a, Lanes b) { return Lanes(_mm_sub_epi16(a.values, b.values)); }
    friend Lanes operator*(Lanes a, Lanes b) { return Lanes(_mm_mullo_epi16(a.values, b.values)); }
    friend Lanes operator&(Lanes a, Lanes b) { return Lanes(_mm_and_si128(a.values, b.values)); }
    friend Lanes operator>>(Lanes a, int bits) { return Lanes(_mm_srli_epi16(a.values, bits)); }
    friend Lanes MultiplyHigh(Lanes a, Lanes b) { return Lanes(_mm_mulhi_epu16(a.values, b.values)); }
    friend Lanes Quotient(Lanes a, Lanes b) {
        const __m128i zero = _mm_setzero_si128();
        const auto divide = [](__m128i x, __m128i y) {
            return _mm_cvttps_epi32(_mm_div_ps(_mm_cvtepi32_ps(x), _mm_cvtepi32_ps(y)));
        };
        return Lanes(
            _mm_packs_epi32(divide(_mm_unpacklo_epi16(a.values, zero), _mm_unpacklo_epi16(b.values, zero)),
                            divide(_mm_unpackhi_epi16(a.values, zero), _mm_unpackhi_epi16(b.values, zero))));
    }
    friend Lanes SubtractToZero(Lanes a, Lanes b) { return Lanes(_mm_subs_epu16(a.values, b.values)); }
    friend Lanes Min(Lanes a, Lanes b) { return Lanes(_mm_min_epi16(a.values, b.values)); }
    friend Lanes Max(Lanes a, Lanes b) { return Lanes(_mm_max_epi16(a.values, b.values)); }
    friend Lanes Magnitude(Lanes a) { return Max(a, Lanes(_mm_setzero_si128()) - a); }
    friend Lanes Signed(Lanes a, Lanes b) {
        const __m128i isNegative = _mm_srai_epi16(b.values, 15);
        return Lanes(_mm_sub_epi16(_mm_xor_si128(a.values, isNegative), isNegative));
    }
    friend Lanes Equals(Lanes a, Lanes b) { return Lanes(_mm_cmpeq_epi16(a.values, b.values)); }
    friend Lanes IsAbove(Lanes a, Lanes b) { return Lanes(_mm_cmpgt_epi16(a.values, b.values)); }
    friend Lanes Select(Lanes condition, Lanes whereTrue, Lanes whereFalse) {
        return Lanes(_mm_or_si128(_mm_and_si128(condition.values, whereTrue.values),
                                  _mm_andnot_si128(condition.values, whereFalse.values)));
    }

private:
    __m128i values;
};

inline MPixelsSSE2::Lanes MPixelsSSE2::GetLow(Block block) {
    return Lanes(_mm_unpacklo_epi8(block.bytes, _mm_setzero_si128()));
}

inline MPixelsSSE2::Lanes MPixelsSSE2::GetHigh(Block block) {
    return Lanes(_mm_unpackhi_epi8(block.bytes, _mm_setzero_si128()));
}

inline MPixelsSSE2::Block MPixelsSSE2::Pack(Lanes low, Lanes high) {
    return {_mm_packus_epi16(low.GetValues(), high.GetValues())};
}

inline MPixelsSSE2::Lanes MPixelsSSE2::Widen(int32_t bytes) {
    const __m128i zero = _mm_setzero_si128();
    return Lanes(_mm_unpacklo_epi16(_mm_unpacklo_epi8(_mm_cvtsi32_si128(bytes), zero), zero));
}

inline MPixelsSSE2::Lanes MPixelsSSE2::LoadMask(const uint8_t* mask) {
    int32_t bytes;
    std::memcpy(&bytes, mask, sizeof bytes);
    return Widen(bytes);
}

inline MPixelsSSE2::Lanes MPixelsSSE2::LoadMaskPart(const uint8_t* mask, int32_t count) {
    int32_t bytes = 0;
    for (int32_t i = count - 1; i >= 0; --i) bytes = bytes << 8 | mask[i];
    return Widen(bytes);
}

inline MPixelsSSE2::Lanes MPixelsSSE2::GetAlphas(Block block) {
    return Lanes(_mm_srli_epi32(block.bytes, 24));
}

inline MPixelsSSE2::Lanes MPixelsSSE2::SpreadLow(Lanes numbers) {
    const __m128i once = numbers.GetValues();
    return Lanes(_mm_unpacklo_epi32(_mm_or_si128(once, _mm_slli_epi32(once, 16)), once));
}

inline MPixelsSSE2::Lanes MPixelsSSE2::SpreadHigh(Lanes numbers) {
    const __m128i once = numbers.GetValues();
    return Lanes(_mm_unpackhi_epi32(_mm_or_si128(once, _mm_slli_epi32(once, 16)), once));
}
