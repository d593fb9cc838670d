#pragma once

#include <cstdint>

/// Numbers that look random and repeat for the same seed: the linear congruential generator of Microsoft's C
/// runtime library, for choices in which nothing is to be kept secret.
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
