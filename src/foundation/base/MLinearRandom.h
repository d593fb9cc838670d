#pragma once

#include <cstdint>

/// Numbers that look random and repeat for the same seed, for choices in which nothing is to be kept secret:
/// a linear congruential generator modulo 2^32, of whose state the upper half is given (D. E. Knuth, "The Art
/// of Computer Programming", volume 2, section 3.2.1).
class MLinearRandom {
public:
    explicit MLinearRandom(uint32_t seed) : state(seed) {}

    /// The next number, from 0 to 65535.
    [[nodiscard]] uint32_t Next() {
        state = state * 214013 + 2531011;
        return state >> 16;
    }

private:
    uint32_t state;
};
