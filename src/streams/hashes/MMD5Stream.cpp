#include "streams/hashes/MMD5Stream.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

uint32_t Load(const uint8_t* bytes, int index) {
    uint32_t word;
    std::memcpy(&word, bytes + 4 * index, sizeof(word));
    return word;
}

// The round functions F, G, H and I. F and G are written so that their result arrives one operation after the
// newest of the three words, on which each step waits; the two terms of G never share a bit and may be added.
struct F {
    static uint32_t Mix(uint32_t b, uint32_t c, uint32_t d) { return ((c ^ d) & b) ^ d; }
};
struct G {
    static uint32_t Mix(uint32_t b, uint32_t c, uint32_t d) { return (~d & c) + (d & b); }
};
struct H {
    static uint32_t Mix(uint32_t b, uint32_t c, uint32_t d) { return b ^ (c ^ d); }
};
struct I {
    static uint32_t Mix(uint32_t b, uint32_t c, uint32_t d) { return c ^ (b | ~d); }
};

template <class Function, int Shift>
[[gnu::always_inline]] inline void Step(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t addend) {
    a += addend + Function::Mix(b, c, d);
    a = std::rotl(a, Shift) + b;
}

/// Four steps, each on the next word to the right; `K` are the sine constants and `X` the words of the block.
template <class Function, int S1, int S2, int S3, int S4>
[[gnu::always_inline]] inline void Quad(uint32_t (&w)[4], const uint8_t* bytes, const uint32_t (&k)[4],
                                        const int (&x)[4]) {
    Step<Function, S1>(w[0], w[1], w[2], w[3], k[0] + Load(bytes, x[0]));
    Step<Function, S2>(w[3], w[0], w[1], w[2], k[1] + Load(bytes, x[1]));
    Step<Function, S3>(w[2], w[3], w[0], w[1], k[2] + Load(bytes, x[2]));
    Step<Function, S4>(w[1], w[2], w[3], w[0], k[3] + Load(bytes, x[3]));
}

[[gnu::always_inline]] inline void Transform(uint32_t (&w)[4], const uint8_t* bytes) {
    Quad<F, 7, 12, 17, 22>(w, bytes, {0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee}, {0, 1, 2, 3});
    Quad<F, 7, 12, 17, 22>(w, bytes, {0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501}, {4, 5, 6, 7});
    Quad<F, 7, 12, 17, 22>(w, bytes, {0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be}, {8, 9, 10, 11});
    Quad<F, 7, 12, 17, 22>(w, bytes, {0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821}, {12, 13, 14, 15});

    Quad<G, 5, 9, 14, 20>(w, bytes, {0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa}, {1, 6, 11, 0});
    Quad<G, 5, 9, 14, 20>(w, bytes, {0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8}, {5, 10, 15, 4});
    Quad<G, 5, 9, 14, 20>(w, bytes, {0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed}, {9, 14, 3, 8});
    Quad<G, 5, 9, 14, 20>(w, bytes, {0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a}, {13, 2, 7, 12});

    Quad<H, 4, 11, 16, 23>(w, bytes, {0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c}, {5, 8, 11, 14});
    Quad<H, 4, 11, 16, 23>(w, bytes, {0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70}, {1, 4, 7, 10});
    Quad<H, 4, 11, 16, 23>(w, bytes, {0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05}, {13, 0, 3, 6});
    Quad<H, 4, 11, 16, 23>(w, bytes, {0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665}, {9, 12, 15, 2});

    Quad<I, 6, 10, 15, 21>(w, bytes, {0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039}, {0, 7, 14, 5});
    Quad<I, 6, 10, 15, 21>(w, bytes, {0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1}, {12, 3, 10, 1});
    Quad<I, 6, 10, 15, 21>(w, bytes, {0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1}, {8, 15, 6, 13});
    Quad<I, 6, 10, 15, 21>(w, bytes, {0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391}, {4, 11, 2, 9});
}

}  // namespace

void MMD5Stream::Reset() {
    bitCountLow = 0;
    bitCountHigh = 0;
    words[0] = variant * 11 + 0x67452301;
    words[1] = variant * 71 + 0xEFCDAB89;
    words[2] = variant * 37 + 0x98BADCFE;
    words[3] = variant * 97 + 0x10325476;
}

void MMD5Stream::ProcessBlocks(const uint8_t* bytes, int32_t count) {
    // The state lives in registers from the first block to the last.
    uint32_t state[4] = {words[0], words[1], words[2], words[3]};
    for (; count > 0; --count, bytes += BlockSize) {
        const uint32_t before[4] = {state[0], state[1], state[2], state[3]};
        Transform(state, bytes);
        for (int i = 0; i < 4; ++i) state[i] += before[i];
    }
    std::copy(state, state + 4, words);
}

void MMD5Stream::CountBits(uint32_t byteCount) {
    const uint32_t before = bitCountLow;
    bitCountLow += byteCount << 3;
    bitCountHigh += (byteCount >> 29) + (bitCountLow < before ? 1 : 0);
}

void MMD5Stream::Write(const void* block, int32_t size) {
    if (size <= 0) return;
    const auto* bytes = static_cast<const uint8_t*>(block);
    const int32_t fillCount = GetFillCount();
    CountBits(static_cast<uint32_t>(size));

    if (fillCount > 0) {
        const int32_t count = std::min(size, BlockSize - fillCount);
        std::memcpy(area + fillCount, bytes, static_cast<size_t>(count));
        if (fillCount + count < BlockSize) return;
        ProcessBlocks(area, 1);
        bytes += count;
        size -= count;
    }
    ProcessBlocks(bytes, size / BlockSize);
    const int32_t rest = size % BlockSize;
    if (rest > 0) std::memcpy(area, bytes + (size - rest), static_cast<size_t>(rest));
}

void MMD5Stream::Finish() {
    static constexpr uint8_t padding[BlockSize] = {0x80};
    constexpr int32_t lengthOffset = BlockSize - 8;
    const uint32_t bitCount[2] = {bitCountLow, bitCountHigh};
    const int32_t fillCount = GetFillCount();
    Write(padding,
          fillCount < lengthOffset ? lengthOffset - fillCount : lengthOffset + BlockSize - fillCount);
    Write(bitCount, sizeof(bitCount));
}

std::span<const uint8_t> MMD5Stream::GetDigest() const {
    return {reinterpret_cast<const uint8_t*>(words), DigestSize};
}
