#pragma once

#include "streams/ciphers/MBlowfishTables.h"

#include <cstdint>
#include <span>

/// The block cipher Blowfish, without a stream around it (B. Schneier, "Description of a New Variable-Length
/// Key, 64-Bit Block Cipher", 1993). Blocks are 8 bytes; the two words of a block, and those of the key, are
/// big-endian. Its time depends on key and data, as that of every cipher with tables does.
///
/// The chained forms are CBC: `chain` is the enciphered block before the first one, and becomes the last one.
/// `output` may be `input` itself, and overlaps it in no other way.
class MBlowfishCipher {
public:
    static constexpr int32_t BlockSize = 8;

    /// Runs the key schedule. The key's bytes are taken in a circle until P is covered; an empty key leaves
    /// the tables at their initial values, which every cipher begins with.
    void SetKey(std::span<const uint8_t> key);

    void Encode(const uint8_t* input, uint8_t* output) const;
    void Decode(const uint8_t* input, uint8_t* output) const;
    /// `size` is in bytes and a multiple of the block size.
    void EncodeChained(const uint8_t* input, uint8_t* output, int32_t size, uint8_t* chain) const;
    void DecodeChained(const uint8_t* input, uint8_t* output, int32_t size, uint8_t* chain) const;

private:
    void MixKeyIntoP(std::span<const uint8_t> key);

    MBlowfishTables tables = MBlowfishInitialTables;
};
