#include "streams/ciphers/MBigInteger.h"

#include "foundation/base/MException.h"

#include <algorithm>
#include <bit>

namespace {

using Words = std::vector<uint32_t>;

uint32_t LowWord(uint64_t value) {
    return static_cast<uint32_t>(value);
}

uint32_t HighWord(uint64_t value) {
    return static_cast<uint32_t>(value >> MBigInteger::WordBits);
}

/// Shifts left by less than a word; the result has a word more.
Words ShiftLeft(std::span<const uint32_t> words, int32_t bits) {
    Words result(words.size() + 1);
    uint64_t carry = 0;
    for (size_t i = 0; i < words.size(); ++i) {
        carry |= uint64_t(words[i]) << bits;
        result[i] = LowWord(carry);
        carry >>= MBigInteger::WordBits;
    }
    result.back() = LowWord(carry);
    return result;
}

/// `part` -= `divisor` * `factor`, over one word more than the divisor has; true if it went below 0.
bool SubtractMultiple(std::span<uint32_t> part, std::span<const uint32_t> divisor, uint32_t factor) {
    uint64_t carry = 0;
    uint64_t borrow = 0;
    for (size_t i = 0; i < divisor.size(); ++i) {
        carry += uint64_t(divisor[i]) * factor;
        const uint64_t difference = uint64_t(part[i]) - LowWord(carry) - borrow;
        part[i] = LowWord(difference);
        borrow = HighWord(difference) & 1;
        carry >>= MBigInteger::WordBits;
    }
    const uint64_t difference = uint64_t(part[divisor.size()]) - carry - borrow;
    part[divisor.size()] = LowWord(difference);
    return HighWord(difference) != 0;
}

void AddBack(std::span<uint32_t> part, std::span<const uint32_t> divisor) {
    uint64_t carry = 0;
    for (size_t i = 0; i < divisor.size(); ++i) {
        carry += uint64_t(part[i]) + divisor[i];
        part[i] = LowWord(carry);
        carry >>= MBigInteger::WordBits;
    }
    part[divisor.size()] += LowWord(carry);
}

/// A word of the quotient from the three highest words at hand and the two highest of the divisor; it is at
/// most one too large.
uint32_t EstimateQuotient(std::span<const uint32_t> part, std::span<const uint32_t> divisor) {
    const size_t n = divisor.size();
    const uint64_t high = uint64_t(part[n]) << MBigInteger::WordBits | part[n - 1];
    uint64_t quotient = high / divisor[n - 1];
    uint64_t rest = high % divisor[n - 1];
    while (HighWord(quotient) != 0 ||
           quotient * divisor[n - 2] > (rest << MBigInteger::WordBits | part[n - 2])) {
        --quotient;
        rest += divisor[n - 1];
        if (HighWord(rest) != 0) break;
    }
    return LowWord(quotient);
}

/// The highest bit of the divisor, which has two words or more, is set. `dividend` becomes the remainder.
void DivideNormalized(std::span<uint32_t> dividend, std::span<const uint32_t> divisor,
                      std::span<uint32_t> quotient) {
    const size_t n = divisor.size();
    for (size_t i = dividend.size() - n; i-- > 0;) {
        const std::span<uint32_t> part = dividend.subspan(i, n + 1);
        uint32_t word = EstimateQuotient(part, divisor);
        if (SubtractMultiple(part, divisor, word)) {
            --word;
            AddBack(part, divisor);
        }
        quotient[i] = word;
    }
}

/// Divides by one word and returns the remainder.
uint32_t DivideByWord(std::span<const uint32_t> dividend, uint32_t divisor, std::span<uint32_t> quotient) {
    uint64_t rest = 0;
    for (size_t i = dividend.size(); i-- > 0;) {
        rest = rest << MBigInteger::WordBits | dividend[i];
        quotient[i] = LowWord(rest / divisor);
        rest %= divisor;
    }
    return LowWord(rest);
}

}  // namespace

void MBigInteger::Add(const MBigInteger& other) {
    RequireWords(other);
    const std::span<const uint32_t> others = other.GetUsedWords();
    uint64_t carry = 0;
    for (size_t i = 0; i < words.size(); ++i) {
        carry += uint64_t(words[i]) + (i < others.size() ? others[i] : 0);
        words[i] = LowWord(carry);
        carry >>= WordBits;
    }
    hasCarry = carry != 0 || others.size() > words.size();
}

void MBigInteger::Add(uint32_t value) {
    Add(MBigInteger(WordSize, value));
}

void MBigInteger::Subtract(const MBigInteger& other) {
    RequireWords(other);
    const std::span<const uint32_t> others = other.GetUsedWords();
    uint64_t borrow = 0;
    for (size_t i = 0; i < words.size(); ++i) {
        const uint64_t difference = uint64_t(words[i]) - (i < others.size() ? others[i] : 0) - borrow;
        words[i] = LowWord(difference);
        borrow = HighWord(difference) & 1;
    }
    hasCarry = borrow != 0 || others.size() > words.size();
}

void MBigInteger::Subtract(uint32_t value) {
    Subtract(MBigInteger(WordSize, value));
}

void MBigInteger::ShiftRight(int32_t bits) {
    RequireWords();
    const size_t count = std::min(static_cast<size_t>(std::max(bits, 0) / WordBits), words.size());
    words.erase(words.begin(), words.begin() + static_cast<std::ptrdiff_t>(count));
    words.resize(words.size() + count);
    const int32_t rest = std::max(bits, 0) % WordBits;
    for (size_t i = 0; i < words.size(); ++i) {
        const uint64_t upper = i + 1 < words.size() ? words[i + 1] : 0;
        words[i] = LowWord((upper << WordBits | words[i]) >> rest);
    }
}

MBigInteger MBigInteger::Multiply(const MBigInteger& other) const {
    RequireWords(other);
    MBigInteger product(GetSize() + other.GetSize());
    const std::span<const uint32_t> others = other.GetUsedWords();
    for (size_t i = 0; i < words.size(); ++i) {
        uint64_t carry = 0;
        for (size_t j = 0; j < others.size(); ++j) {
            carry += uint64_t(words[i]) * others[j] + product.words[i + j];
            product.words[i + j] = LowWord(carry);
            carry >>= WordBits;
        }
        product.words[i + others.size()] = LowWord(carry);
    }
    return product;
}

MBigInteger MBigInteger::Divide(const MBigInteger& divisor, MBigInteger& remainder) const {
    RequireWords(divisor);
    const std::span<const uint32_t> used = divisor.GetUsedWords();
    if (used.empty()) MRaise(MExceptionGeneral, "Big integer division by zero.");

    MBigInteger quotient(GetSize());
    MBigInteger rest(divisor.GetSize());
    const std::span<const uint32_t> ours = GetUsedWords();
    if (ours.size() < used.size()) {
        std::ranges::copy(ours, rest.words.begin());
    } else if (used.size() == 1) {
        rest.words[0] = DivideByWord(ours, used[0], quotient.words);
    } else {
        const int32_t shift = std::countl_zero(used.back());
        Words dividend = ShiftLeft(ours, shift);
        const Words normalized = ShiftLeft(used, shift);
        DivideNormalized(dividend, std::span(normalized).first(used.size()), quotient.words);
        std::copy_n(dividend.begin(), used.size(), rest.words.begin());
        rest.ShiftRight(shift);
    }
    remainder = std::move(rest);
    return quotient;
}

MBigInteger MBigInteger::Modulo(const MBigInteger& modulus) const {
    MBigInteger remainder;
    (void)Divide(modulus, remainder);
    return remainder;
}

uint32_t MBigInteger::ModuloWord(uint32_t divisor) const {
    RequireWords();
    uint64_t rest = 0;
    for (size_t i = words.size(); i-- > 0;) rest = (rest << WordBits | words[i]) % divisor;
    return LowWord(rest);
}
