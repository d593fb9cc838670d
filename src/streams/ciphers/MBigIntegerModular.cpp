#include "streams/ciphers/MBigInteger.h"
#include "streams/ciphers/MMontgomery.h"

#include <utility>

MBigInteger MBigInteger::PowerModulo(const MBigInteger& exponent, const MBigInteger& modulus) const {
    RequireWords(exponent);
    const MMontgomery montgomery(modulus);
    return montgomery.FromForm(montgomery.Power(montgomery.ToForm(*this), exponent));
}

MBigInteger MBigInteger::InvertModulo(const MBigInteger& modulus) const {
    MBigInteger rest = modulus;
    MBigInteger nextRest = Modulo(modulus);
    // By what this number gives the rests; the signs alternate, so only the sizes are kept.
    MBigInteger factor(modulus.GetSize(), 0);
    MBigInteger nextFactor(modulus.GetSize(), 1);
    bool isNextNegative = false;
    while (!nextRest.IsEqual(0)) {
        MBigInteger remainder;
        const MBigInteger quotient = rest.Divide(nextRest, remainder);
        rest = std::exchange(nextRest, std::move(remainder));
        factor.Add(quotient.Multiply(nextFactor));
        std::swap(factor, nextFactor);
        isNextNegative = !isNextNegative;
    }
    if (!rest.IsEqual(1) || modulus.IsEqual(1)) return MBigInteger(modulus.GetSize(), 0);
    if (isNextNegative) return factor;
    MBigInteger inverse = modulus;
    inverse.Subtract(factor);
    return inverse;
}
