#pragma once

#include "ui/image/MColor.h"

#include <cstring>
#include <immintrin.h>

/// Pixels in vectors of 256 bits, eight in a block. What the operations mean is said in MPixelRowTemplate.h.
///
/// Widening and packing work within halves of a vector: the low lanes are those of pixels 0, 1, 4 and 5.
///
/// This is compiled for processors with AVX2, so it calls no function that other files share: the linker
/// might take the one from here for all of them.
struct MPixelsAVX2 {
    class Lanes;
    struct Block {
        __m256i bytes;
    };

    static constexpr int32_t Count = 8;

    static Block Load(const MColor* pixels) {
        return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(pixels))};
    }
    static Block LoadPart(const MColor* pixels, int32_t count) {
        return {_mm256_maskload_epi32(reinterpret_cast<const int*>(pixels), GetPart(count))};
    }
    static void Store(MColor* pixels, Block block) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels), block.bytes);
    }
    static void StorePart(MColor* pixels, Block block, int32_t count) {
        _mm256_maskstore_epi32(reinterpret_cast<int*>(pixels), GetPart(count), block.bytes);
    }
    static Lanes LoadMask(const uint8_t* mask);
    static Lanes LoadMaskPart(const uint8_t* mask, int32_t count);
    static Block Gather(const MColor* pixels, uint32_t position, uint32_t step) {
        const auto load = [&](uint32_t i) { return LoadOne(pixels + ((position + i * step) >> 16)); };
        return {_mm256_setr_epi32(load(0), load(1), load(2), load(3), load(4), load(5), load(6), load(7))};
    }
    static Block GatherPart(const MColor* pixels, uint32_t position, uint32_t step, int32_t count) {
        int part[Count] = {};
        for (int32_t i = 0; i < count; ++i, position += step) part[i] = LoadOne(pixels + (position >> 16));
        return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(part))};
    }

    [[gnu::always_inline]] static Block Pick(Block block, uint32_t position, uint32_t step) {
        const __m256i moves = _mm256_mullo_epi32(_mm256_set1_epi32(static_cast<int>(step)), GetIndices());
        const __m256i positions = _mm256_add_epi32(_mm256_set1_epi32(static_cast<int>(position)), moves);
        return {_mm256_permutevar8x32_epi32(block.bytes, _mm256_srli_epi32(positions, 16))};
    }

    static bool AreOpaque(Block block) { return _mm256_testc_si256(block.bytes, GetAlphaBytes()) != 0; }
    static bool AreTransparent(Block block) { return _mm256_testz_si256(block.bytes, GetAlphaBytes()) != 0; }
    static Block SubtractOne(Block block) { return {_mm256_subs_epu8(block.bytes, _mm256_set1_epi8(1))}; }
    static Block WithAlphasOf(Block block, Block alphas) {
        return {_mm256_blendv_epi8(block.bytes, alphas.bytes, GetAlphaBytes())};
    }

    static Lanes GetLow(Block block);
    static Lanes GetHigh(Block block);
    static Block Pack(Lanes low, Lanes high);
    static Lanes GetAlphas(Block block);
    static Lanes SpreadLow(Lanes numbers);
    static Lanes SpreadHigh(Lanes numbers);

private:
    static __m256i GetIndices() { return _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7); }
    static __m256i GetAlphaBytes() { return _mm256_set1_epi32(static_cast<int>(0xFF000000)); }
    static int LoadOne(const MColor* pixel) {
        int word;
        std::memcpy(&word, pixel, sizeof word);
        return word;
    }
    static __m256i GetPart(int32_t count) {
        return _mm256_cmpgt_epi32(_mm256_set1_epi32(count), GetIndices());
    }
    static Lanes Spread(Lanes numbers, char first, char second);
};

class MPixelsAVX2::Lanes {
public:
    explicit Lanes(__m256i newValues) : values(newValues) {}

    static Lanes All(uint16_t value) { return Lanes(_mm256_set1_epi16(static_cast<int16_t>(value))); }
    static Lanes Repeat(int16_t blue, int16_t green, int16_t red, int16_t alpha) {
        return Lanes(_mm256_setr_epi16(blue, green, red, alpha, blue, green, red, alpha, blue, green, red,
                                       alpha, blue, green, red, alpha));
    }
    static Lanes Repeat(MColor color) { return Repeat(color.blue, color.green, color.red, color.alpha); }

    [[nodiscard]] __m256i GetValues() const { return values; }
    [[nodiscard]] Lanes Alphas() const {
        return Lanes(_mm256_shufflehi_epi16(_mm256_shufflelo_epi16(values, 0xFF), 0xFF));
    }
    [[nodiscard]] Lanes ToAlphas() const { return Lanes(_mm256_slli_epi64(values, 16)); }
    [[nodiscard]] Lanes WithAlphas(Lanes alphas) const {
        return Lanes(_mm256_blend_epi16(values, alphas.values, 0x88));
    }
    [[nodiscard]] Lanes Neighbours() const {
        return Lanes(_mm256_shufflehi_epi16(_mm256_shufflelo_epi16(values, 0xB1), 0xB1));
    }
    [[nodiscard]] Lanes OtherPairs() const { return Lanes(_mm256_shuffle_epi32(values, 0xB1)); }

    friend Lanes operator+(Lanes a, Lanes b) { return Lanes(_mm256_add_epi16(a.values, b.values)); }
    friend Lanes operator-(Lanes a, Lanes b) { return Lanes(_mm256_sub_epi16(a.values, b.values)); }
    friend Lanes operator*(Lanes a, Lanes b) { return Lanes(_mm256_mullo_epi16(a.values, b.values)); }
    friend Lanes operator&(Lanes a, Lanes b) { return Lanes(_mm256_and_si256(a.values, b.values)); }
    friend Lanes operator>>(Lanes a, int bits) { return Lanes(_mm256_srli_epi16(a.values, bits)); }
    friend Lanes MultiplyHigh(Lanes a, Lanes b) { return Lanes(_mm256_mulhi_epu16(a.values, b.values)); }
    friend Lanes Quotient(Lanes a, Lanes b) {
        const __m256i zero = _mm256_setzero_si256();
        const auto divide = [](__m256i x, __m256i y) {
            return _mm256_cvttps_epi32(_mm256_div_ps(_mm256_cvtepi32_ps(x), _mm256_cvtepi32_ps(y)));
        };
        return Lanes(_mm256_packs_epi32(
            divide(_mm256_unpacklo_epi16(a.values, zero), _mm256_unpacklo_epi16(b.values, zero)),
            divide(_mm256_unpackhi_epi16(a.values, zero), _mm256_unpackhi_epi16(b.values, zero))));
    }
    friend Lanes SubtractToZero(Lanes a, Lanes b) { return Lanes(_mm256_subs_epu16(a.values, b.values)); }
    friend Lanes Min(Lanes a, Lanes b) { return Lanes(_mm256_min_epi16(a.values, b.values)); }
    friend Lanes Max(Lanes a, Lanes b) { return Lanes(_mm256_max_epi16(a.values, b.values)); }
    friend Lanes Magnitude(Lanes a) { return Lanes(_mm256_abs_epi16(a.values)); }
    friend Lanes Signed(Lanes a, Lanes b) { return Lanes(_mm256_sign_epi16(a.values, b.values)); }
    friend Lanes Equals(Lanes a, Lanes b) { return Lanes(_mm256_cmpeq_epi16(a.values, b.values)); }
    friend Lanes IsAbove(Lanes a, Lanes b) { return Lanes(_mm256_cmpgt_epi16(a.values, b.values)); }
    friend Lanes Select(Lanes condition, Lanes whereTrue, Lanes whereFalse) {
        return Lanes(_mm256_blendv_epi8(whereFalse.values, whereTrue.values, condition.values));
    }

private:
    __m256i values;
};

inline MPixelsAVX2::Lanes MPixelsAVX2::GetLow(Block block) {
    return Lanes(_mm256_unpacklo_epi8(block.bytes, _mm256_setzero_si256()));
}

inline MPixelsAVX2::Lanes MPixelsAVX2::GetHigh(Block block) {
    return Lanes(_mm256_unpackhi_epi8(block.bytes, _mm256_setzero_si256()));
}

inline MPixelsAVX2::Block MPixelsAVX2::Pack(Lanes low, Lanes high) {
    return {_mm256_packus_epi16(low.GetValues(), high.GetValues())};
}

inline MPixelsAVX2::Lanes MPixelsAVX2::LoadMask(const uint8_t* mask) {
    return Lanes(_mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(mask))));
}

inline MPixelsAVX2::Lanes MPixelsAVX2::LoadMaskPart(const uint8_t* mask, int32_t count) {
    uint64_t bytes = 0;
    for (int32_t i = count - 1; i >= 0; --i) bytes = bytes << 8 | mask[i];
    return LoadMask(reinterpret_cast<const uint8_t*>(&bytes));
}

inline MPixelsAVX2::Lanes MPixelsAVX2::GetAlphas(Block block) {
    return Lanes(_mm256_srli_epi32(block.bytes, 24));
}

/// From the numbers at these bytes of both halves of the vector.
inline MPixelsAVX2::Lanes MPixelsAVX2::Spread(Lanes numbers, char first, char second) {
    const auto low = static_cast<char>(first + 1);
    const auto high = static_cast<char>(second + 1);
    const __m128i order = _mm_setr_epi8(first, low, first, low, first, low, -1, -1, second, high, second,
                                        high, second, high, -1, -1);
    return Lanes(_mm256_shuffle_epi8(numbers.GetValues(), _mm256_broadcastsi128_si256(order)));
}

inline MPixelsAVX2::Lanes MPixelsAVX2::SpreadLow(Lanes numbers) {
    return Spread(numbers, 0, 4);
}

inline MPixelsAVX2::Lanes MPixelsAVX2::SpreadHigh(Lanes numbers) {
    return Spread(numbers, 8, 12);
}
