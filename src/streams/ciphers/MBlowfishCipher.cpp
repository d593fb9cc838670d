#include "streams/ciphers/MBlowfishCipher.h"

namespace {

constexpr int32_t RoundCount = MBlowfishTables::WordCount - 2;
/// Blocks that are deciphered side by side: they do not wait for each other, so the processor overlaps them.
/// It can where the compiler writes the loops over them out, which it does at every level of optimization
/// when told.
constexpr int32_t Lanes = 4;

uint32_t LoadWord(const uint8_t* bytes) {
    return uint32_t(bytes[0]) << 24 | uint32_t(bytes[1]) << 16 | uint32_t(bytes[2]) << 8 | bytes[3];
}

void StoreWord(uint32_t word, uint8_t* bytes) {
    bytes[0] = static_cast<uint8_t>(word >> 24);
    bytes[1] = static_cast<uint8_t>(word >> 16);
    bytes[2] = static_cast<uint8_t>(word >> 8);
    bytes[3] = static_cast<uint8_t>(word);
}

struct Halves {
    uint32_t left;
    uint32_t right;
};

Halves LoadBlock(const uint8_t* bytes) {
    return {LoadWord(bytes), LoadWord(bytes + 4)};
}

void StoreBlock(Halves block, uint8_t* bytes) {
    StoreWord(block.left, bytes);
    StoreWord(block.right, bytes + 4);
}

Halves operator^(Halves a, Halves b) {
    return {a.left ^ b.left, a.right ^ b.right};
}

uint32_t Mix(const MBlowfishTables& tables, uint32_t half) {
    const auto& s = tables.s;
    return ((s[0][half >> 24] + s[1][half >> 16 & 0xFF]) ^ s[2][half >> 8 & 0xFF]) + s[3][half & 0xFF];
}

Halves EncodeHalves(const MBlowfishTables& tables, Halves block) {
    auto [left, right] = block;
    const uint32_t* p = tables.p;
#pragma GCC unroll RoundCount
    for (int32_t round = 0; round < RoundCount; round += 2) {
        left ^= p[round];
        right ^= Mix(tables, left);
        right ^= p[round + 1];
        left ^= Mix(tables, right);
    }
    return {right ^ p[RoundCount + 1], left ^ p[RoundCount]};
}

/// Deciphers `Count` blocks in place.
template <int32_t Count>
void DecodeHalves(const MBlowfishTables& tables, Halves (&blocks)[Count]) {
    const uint32_t* p = tables.p;
    for (int32_t round = RoundCount + 1; round > 1; round -= 2) {
#pragma GCC unroll Lanes
        for (auto& [left, right] : blocks) {
            left ^= p[round];
            right ^= Mix(tables, left);
            right ^= p[round - 1];
            left ^= Mix(tables, right);
        }
    }
#pragma GCC unroll Lanes
    for (Halves& block : blocks) block = {block.right ^ p[0], block.left ^ p[1]};
}

/// Deciphers `Count` chained blocks; `chain` is the enciphered block before them, and becomes their last one.
template <int32_t Count>
void DecodeChainedBlocks(const MBlowfishTables& tables, const uint8_t* input, uint8_t* output,
                         Halves& chain) {
    Halves enciphered[Count];
    Halves plain[Count];
#pragma GCC unroll Lanes
    for (int32_t i = 0; i < Count; ++i)
        plain[i] = enciphered[i] = LoadBlock(input + i * MBlowfishCipher::BlockSize);
    DecodeHalves(tables, plain);
#pragma GCC unroll Lanes
    for (int32_t i = 0; i < Count; ++i) {
        StoreBlock(plain[i] ^ chain, output + i * MBlowfishCipher::BlockSize);
        chain = enciphered[i];
    }
}

}  // namespace

void MBlowfishCipher::MixKeyIntoP(std::span<const uint8_t> key) {
    size_t next = 0;
    for (uint32_t& word : tables.p) {
        uint32_t keyWord = 0;
        for (int32_t i = 0; i < 4; ++i, next = (next + 1) % key.size()) keyWord = keyWord << 8 | key[next];
        word ^= keyWord;
    }
}

void MBlowfishCipher::SetKey(std::span<const uint8_t> key) {
    tables = MBlowfishInitialTables;
    if (key.empty()) return;
    MixKeyIntoP(key);
    Halves block{0, 0};
    const auto replace = [&](std::span<uint32_t> words) {
        for (size_t i = 0; i < words.size(); i += 2) {
            block = EncodeHalves(tables, block);
            words[i] = block.left;
            words[i + 1] = block.right;
        }
    };
    replace(tables.p);
    for (auto& box : tables.s) replace(box);
}

void MBlowfishCipher::Encode(const uint8_t* input, uint8_t* output) const {
    StoreBlock(EncodeHalves(tables, LoadBlock(input)), output);
}

void MBlowfishCipher::Decode(const uint8_t* input, uint8_t* output) const {
    Halves block[] = {LoadBlock(input)};
    DecodeHalves(tables, block);
    StoreBlock(block[0], output);
}

void MBlowfishCipher::EncodeChained(const uint8_t* input, uint8_t* output, int32_t size,
                                    uint8_t* chain) const {
    Halves block = LoadBlock(chain);
    for (int32_t i = 0; i < size; i += BlockSize) {
        block = EncodeHalves(tables, LoadBlock(input + i) ^ block);
        StoreBlock(block, output + i);
    }
    StoreBlock(block, chain);
}

void MBlowfishCipher::DecodeChained(const uint8_t* input, uint8_t* output, int32_t size,
                                    uint8_t* chain) const {
    Halves block = LoadBlock(chain);
    int32_t i = 0;
    for (; i + Lanes * BlockSize <= size; i += Lanes * BlockSize)
        DecodeChainedBlocks<Lanes>(tables, input + i, output + i, block);
    for (; i < size; i += BlockSize) DecodeChainedBlocks<1>(tables, input + i, output + i, block);
    StoreBlock(block, chain);
}
