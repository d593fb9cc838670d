#pragma once

#include "streams/ciphers/MBigInteger.h"

/// Multiplication modulo a fixed odd number without divisions (P. L. Montgomery, "Modular Multiplication
/// Without Trial Division", 1985). Numbers take part in a form of their own, with the words of the modulus;
/// in it, multiplying, comparing and raising to a power mean what they mean outside.
class MMontgomery {
public:
    /// Raises "Big integer modulus is not odd." (0).
    explicit MMontgomery(const MBigInteger& modulus);

    [[nodiscard]] MBigInteger ToForm(const MBigInteger& value) const;
    [[nodiscard]] MBigInteger FromForm(const MBigInteger& form) const;
    [[nodiscard]] MBigInteger Multiply(const MBigInteger& a, const MBigInteger& b) const;
    [[nodiscard]] MBigInteger Power(const MBigInteger& base, const MBigInteger& exponent) const;

private:
    using Words = std::vector<uint32_t>;

    /// `result`, of as many words as the modulus, may be one of the factors.
    void MultiplyWords(const uint32_t* a, const uint32_t* b, uint32_t* result) const;
    void ReduceOnce(uint32_t* result) const;

    MBigInteger modulus;
    /// What the modulus must be multiplied with to give -1 modulo 2^32.
    uint32_t negativeInverse = 0;
    /// The form of 1, and of the number that makes forms.
    MBigInteger one;
    MBigInteger square;
    /// Of the product at hand: one word more than the modulus.
    mutable Words scratch;
};
