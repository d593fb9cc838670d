#include "streams/ciphers/MMontgomery.h"

#include "foundation/base/MException.h"

#include <algorithm>

namespace {

constexpr int32_t WordBits = MBigInteger::WordBits;
/// Bits of the exponent that are taken together.
constexpr int32_t WindowBits = 4;
constexpr int32_t PowerCount = 1 << WindowBits;

/// Each step of Newton's doubles the count of bits that are right; an odd number is its own inverse in three.
uint32_t InvertWord(uint32_t word) {
    uint32_t inverse = word;
    for (int step = 0; step < 4; ++step) inverse *= 2 - word * inverse;
    return inverse;
}

/// 2 to the power of `words` words, modulo `modulus`.
MBigInteger GetWordPowerModulo(int32_t words, const MBigInteger& modulus) {
    MBigInteger power((words + 1) * MBigInteger::WordSize);
    power.SetBit(words * WordBits);
    return power.Modulo(modulus);
}

uint32_t GetWindow(const MBigInteger& exponent, int32_t lowestBit) {
    const uint32_t word = exponent.GetWords()[static_cast<size_t>(lowestBit / WordBits)];
    return word >> lowestBit % WordBits & (PowerCount - 1);
}

}  // namespace

MMontgomery::MMontgomery(const MBigInteger& modulus) : modulus(modulus) {
    if (!modulus.IsOdd()) MRaise(MExceptionGeneral, "Big integer modulus is not odd.");
    const int32_t count = modulus.GetCount();
    negativeInverse = 0 - InvertWord(modulus.GetWords()[0]);
    one = GetWordPowerModulo(count, modulus);
    square = GetWordPowerModulo(2 * count, modulus);
    scratch.resize(static_cast<size_t>(count) + 1);
}

/// Adds, for each word of `b`, its product with `a` and the multiple of the modulus that makes the lowest
/// word 0, which then falls away.
void MMontgomery::MultiplyWords(const uint32_t* a, const uint32_t* b, uint32_t* result) const {
    const uint32_t* m = modulus.GetWords().data();
    const size_t count = modulus.GetWords().size();
    uint32_t* sum = scratch.data();
    std::fill_n(sum, count + 1, 0u);
    for (size_t i = 0; i < count; ++i) {
        uint64_t product = uint64_t(a[0]) * b[i] + sum[0];
        const uint32_t factor = static_cast<uint32_t>(product) * negativeInverse;
        uint64_t multiple = uint64_t(factor) * m[0] + static_cast<uint32_t>(product);
        for (size_t j = 1; j < count; ++j) {
            product = uint64_t(a[j]) * b[i] + sum[j] + (product >> WordBits);
            multiple = uint64_t(factor) * m[j] + static_cast<uint32_t>(product) + (multiple >> WordBits);
            sum[j - 1] = static_cast<uint32_t>(multiple);
        }
        const uint64_t top = (product >> WordBits) + (multiple >> WordBits) + sum[count];
        sum[count - 1] = static_cast<uint32_t>(top);
        sum[count] = static_cast<uint32_t>(top >> WordBits);
    }
    ReduceOnce(result);
}

/// The sum is below twice the modulus.
void MMontgomery::ReduceOnce(uint32_t* result) const {
    const std::span<const uint32_t> m = modulus.GetWords();
    uint64_t borrow = 0;
    for (size_t i = 0; i < m.size(); ++i) {
        const uint64_t difference = uint64_t(scratch[i]) - m[i] - borrow;
        result[i] = static_cast<uint32_t>(difference);
        borrow = difference >> WordBits & 1;
    }
    if (borrow > scratch.back()) std::copy_n(scratch.begin(), m.size(), result);
}

MBigInteger MMontgomery::Multiply(const MBigInteger& a, const MBigInteger& b) const {
    Words product(modulus.GetWords().size());
    MultiplyWords(a.GetWords().data(), b.GetWords().data(), product.data());
    return MBigInteger(product);
}

MBigInteger MMontgomery::ToForm(const MBigInteger& value) const {
    return Multiply(value.Modulo(modulus), square);
}

MBigInteger MMontgomery::FromForm(const MBigInteger& form) const {
    return Multiply(form, MBigInteger(modulus.GetSize(), 1));
}

MBigInteger MMontgomery::Power(const MBigInteger& base, const MBigInteger& exponent) const {
    MBigInteger powers[PowerCount] = {one, base};
    for (int32_t i = 2; i < PowerCount; ++i) powers[i] = Multiply(powers[i - 1], base);

    Words result(one.GetWords().begin(), one.GetWords().end());
    const int32_t windows = (exponent.GetBitCount() + WindowBits - 1) / WindowBits;
    for (int32_t window = windows; window-- > 0;) {
        for (int32_t i = 0; i < WindowBits; ++i) MultiplyWords(result.data(), result.data(), result.data());
        const uint32_t bits = GetWindow(exponent, window * WindowBits);
        if (bits != 0) MultiplyWords(result.data(), powers[bits].GetWords().data(), result.data());
    }
    return MBigInteger(result);
}
