#pragma once

#include <cstdint>

/// The words of Blowfish that a key changes: the P array, mixed into the rounds, and the four S boxes.
struct MBlowfishTables {
    static constexpr int32_t WordCount = 18;
    static constexpr int32_t BoxCount = 4;
    static constexpr int32_t BoxSize = 256;

    uint32_t p[WordCount];
    uint32_t s[BoxCount][BoxSize];
};

/// What the words are before a key is set: the fraction of pi in hexadecimal, P first.
extern const MBlowfishTables MBlowfishInitialTables;
