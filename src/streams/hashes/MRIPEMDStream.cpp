#include "streams/hashes/MRIPEMDStream.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace {

constexpr int32_t BlockSize = 64;
constexpr int StepsPerRound = 16;

/// One of the two lines of the algorithm: which word of the block each step takes, how far it rotates, and
/// the constant of each round.
struct Line {
    uint8_t words[5][StepsPerRound];
    uint8_t shifts[5][StepsPerRound];
    uint32_t constants[5];
};

constexpr Line LeftLine = {
    {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15},
     {7, 4, 13, 1, 10, 6, 15, 3, 12, 0, 9, 5, 2, 14, 11, 8},
     {3, 10, 14, 4, 9, 15, 8, 1, 2, 7, 0, 6, 13, 11, 5, 12},
     {1, 9, 11, 10, 0, 8, 12, 4, 13, 3, 7, 15, 14, 5, 6, 2},
     {4, 0, 5, 9, 7, 12, 2, 10, 14, 1, 3, 8, 11, 6, 15, 13}},
    {{11, 14, 15, 12, 5, 8, 7, 9, 11, 13, 14, 15, 6, 7, 9, 8},
     {7, 6, 8, 13, 11, 9, 7, 15, 7, 12, 15, 9, 11, 7, 13, 12},
     {11, 13, 6, 7, 14, 9, 13, 15, 14, 8, 13, 6, 5, 12, 7, 5},
     {11, 12, 14, 15, 14, 15, 9, 8, 9, 14, 5, 6, 8, 6, 5, 12},
     {9, 15, 5, 11, 6, 8, 13, 12, 5, 12, 13, 14, 11, 8, 5, 6}},
    {0x00000000, 0x5A827999, 0x6ED9EBA1, 0x8F1BBCDC, 0xA953FD4E},
};

constexpr Line RightLine = {
    {{5, 14, 7, 0, 9, 2, 11, 4, 13, 6, 15, 8, 1, 10, 3, 12},
     {6, 11, 3, 7, 0, 13, 5, 10, 14, 15, 8, 12, 4, 9, 1, 2},
     {15, 5, 1, 3, 7, 14, 6, 9, 11, 8, 12, 2, 10, 0, 4, 13},
     {8, 6, 4, 1, 3, 11, 15, 0, 5, 12, 2, 13, 9, 7, 10, 14},
     {12, 15, 10, 4, 1, 5, 8, 7, 6, 2, 13, 14, 0, 3, 9, 11}},
    {{8, 9, 9, 11, 13, 15, 15, 5, 7, 7, 8, 11, 14, 14, 12, 6},
     {9, 13, 15, 7, 12, 8, 9, 11, 7, 7, 12, 7, 6, 15, 13, 11},
     {9, 7, 15, 11, 8, 6, 6, 14, 12, 13, 5, 14, 13, 13, 7, 5},
     {15, 5, 8, 11, 14, 14, 6, 14, 6, 9, 12, 9, 12, 5, 15, 8},
     {8, 5, 12, 9, 12, 5, 14, 6, 8, 13, 6, 5, 15, 13, 11, 11}},
    {0x50A28BE6, 0x5C4DD124, 0x6D703EF3, 0x7A6D76E9, 0x00000000},
};

/// The five functions, in the order in which the left line uses them.
template <int Function>
uint32_t Mix(uint32_t x, uint32_t y, uint32_t z) {
    if constexpr (Function == 0) return x ^ y ^ z;
    if constexpr (Function == 1) return ((y ^ z) & x) ^ z;
    if constexpr (Function == 2) return (x | ~y) ^ z;
    if constexpr (Function == 3) return ((x ^ y) & z) ^ y;
    if constexpr (Function == 4) return x ^ (y | ~z);
}

template <const Line& Steps, int Round, int Function, int Step>
[[gnu::always_inline]] inline void ProcessStep(uint32_t (&w)[5], const uint32_t (&x)[StepsPerRound]) {
    // Instead of the words, their roles move on with each step, so that no word is copied.
    constexpr int first = 5 * StepsPerRound - (Round * StepsPerRound + Step);
    uint32_t& a = w[first % 5];
    const uint32_t b = w[(first + 1) % 5];
    uint32_t& c = w[(first + 2) % 5];
    const uint32_t d = w[(first + 3) % 5];
    const uint32_t e = w[(first + 4) % 5];
    a += Mix<Function>(b, c, d) + x[Steps.words[Round][Step]] + Steps.constants[Round];
    a = std::rotl(a, Steps.shifts[Round][Step]) + e;
    c = std::rotl(c, 10);
}

/// Unrolled, so that every index and shift is a constant.
template <const Line& Steps, int Round, int Function, int... Step>
[[gnu::always_inline]] inline void ProcessRound(uint32_t (&w)[5], const uint32_t (&x)[StepsPerRound],
                                                std::integer_sequence<int, Step...>) {
    (ProcessStep<Steps, Round, Function, Step>(w, x), ...);
}

}  // namespace

MRIPEMDStream::MRIPEMDStream() {
    Initialize(BlockSize);
    Reset();
}

void MRIPEMDStream::Reset() {
    MHashStream::Reset();
    constexpr uint32_t start[5] = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
    std::copy(start, start + 5, words);
    length = 0;
}

void MRIPEMDStream::Write(const void* block, int32_t size) {
    MHashStream::Write(block, size);
    length += static_cast<uint64_t>(std::max(size, 0));
}

void MRIPEMDStream::Finish() {
    Pad(length * 8);
}

void MRIPEMDStream::ProcessBlock(const uint8_t* bytes) {
    uint32_t x[StepsPerRound];
    std::memcpy(x, bytes, sizeof(x));
    uint32_t left[5], right[5];
    std::copy(words, words + 5, left);
    std::copy(words, words + 5, right);
    [&]<int... Round>(std::integer_sequence<int, Round...>) {
        constexpr std::make_integer_sequence<int, StepsPerRound> steps;
        (ProcessRound<LeftLine, Round, Round>(left, x, steps), ...);
        (ProcessRound<RightLine, Round, 4 - Round>(right, x, steps), ...);
    }
    (std::make_integer_sequence<int, 5>());

    const uint32_t first = words[1] + left[2] + right[3];
    words[1] = words[2] + left[3] + right[4];
    words[2] = words[3] + left[4] + right[0];
    words[3] = words[4] + left[0] + right[1];
    words[4] = words[0] + left[1] + right[2];
    words[0] = first;
}

std::span<const uint8_t> MRIPEMDStream::GetDigest() const {
    return {reinterpret_cast<const uint8_t*>(words), DigestSize};
}
