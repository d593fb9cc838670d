#pragma once

#include "streams/basic/MStream.h"

#include <cstdint>
#include <span>
#include <vector>

/// A number of zero or above with as many 32-bit words as were asked for, lowest first. It never grows by
/// itself: what goes beyond its words is lost, and told by the carry. Sizes are in bytes and rounded up to
/// words.
///
/// Every operation on or with a number that has no words raises "Big integer object has not been
/// initialized." (0). The time that an operation takes depends on the values: this is no shield against who
/// can measure it.
class MBigInteger {
public:
    static constexpr int32_t WordSize = 4;
    static constexpr int32_t WordBits = 32;

    /// Without words.
    MBigInteger() = default;
    explicit MBigInteger(int32_t size, uint32_t value = 0);
    explicit MBigInteger(std::span<const uint32_t> words) : words(words.begin(), words.end()) {}

    /// What was there stays as far as it fits; new words are 0. A size of 0 or below leaves none.
    void SetSize(int32_t size);
    [[nodiscard]] int32_t GetSize() const { return GetCount() * WordSize; }
    /// Of words.
    [[nodiscard]] int32_t GetCount() const { return static_cast<int32_t>(words.size()); }
    [[nodiscard]] std::span<const uint32_t> GetWords() const { return words; }

    /// The size stays.
    void SetValue(uint32_t value);
    /// Takes the value of another number, cut to the size of this one.
    void SetValue(const MBigInteger& other);
    /// Lowest byte first, the size is that of the block.
    void SetBytes(std::span<const uint8_t> bytes);
    /// Lowest byte first; zeros behind the number, and what does not fit is cut.
    void GetBytes(std::span<uint8_t> bytes) const;
    /// Random in all its bits. Raises "Random bytes are not available. {0}" (0).
    void SetRandom();
    void SetBit(int32_t index);

    /// Word for word, as many as there are, each little-endian.
    void Write(MStream& target) const;
    /// As many words as this number has. Raises "Could not read required data from stream." (0x100).
    void Read(MStream& source);

    /// Below, at or above 0. The sizes may differ.
    [[nodiscard]] int32_t Compare(const MBigInteger& other) const;
    [[nodiscard]] bool IsEqual(uint32_t value) const;
    [[nodiscard]] bool IsOdd() const;
    [[nodiscard]] bool GetBit(int32_t index) const;
    /// The count of bits without leading zeros.
    [[nodiscard]] int32_t GetBitCount() const;

    /// Whether the last `Add` or `Subtract` went beyond the words.
    [[nodiscard]] bool HasCarry() const { return hasCarry; }
    /// The other number may have fewer words, and may have more if these are 0.
    void Add(const MBigInteger& other);
    void Add(uint32_t value);
    void Subtract(const MBigInteger& other);
    void Subtract(uint32_t value);
    void ShiftRight(int32_t bits);
    /// The product has the words of both factors together.
    [[nodiscard]] MBigInteger Multiply(const MBigInteger& other) const;
    /// The quotient has the words of this number, the remainder those of the divisor. D. E. Knuth, "The Art
    /// of Computer Programming", volume 2, algorithm D. Raises "Big integer division by zero." (0).
    [[nodiscard]] MBigInteger Divide(const MBigInteger& divisor, MBigInteger& remainder) const;
    [[nodiscard]] MBigInteger Modulo(const MBigInteger& modulus) const;
    /// The divisor is not 0.
    [[nodiscard]] uint32_t ModuloWord(uint32_t divisor) const;

    /// The power of this number by the exponent, with the words of the modulus, which must be odd.
    /// Raises "Big integer modulus is not odd." (0).
    [[nodiscard]] MBigInteger PowerModulo(const MBigInteger& exponent, const MBigInteger& modulus) const;
    /// The number by which this one must be multiplied to give 1 modulo `modulus`, with the words of the
    /// modulus; 0 if there is none. Euclid's extended algorithm. Raises "Big integer division by zero." (0).
    [[nodiscard]] MBigInteger InvertModulo(const MBigInteger& modulus) const;

    /// Tests by Miller and Rabin with as many random bases as there are rounds, each of which lets one in
    /// four composite numbers pass at most. Raises "Random bytes are not available. {0}" (0).
    [[nodiscard]] bool IsProbablePrime(int32_t rounds) const;
    /// Becomes a random probable prime with the two highest bits of its size set, so that the product of two
    /// has all its bits. Raises as `IsProbablePrime` does.
    void SetRandomPrime(int32_t rounds);

private:
    void RequireWords() const;
    void RequireWords(const MBigInteger& other) const;
    /// Without the words that are 0 at the upper end.
    [[nodiscard]] std::span<const uint32_t> GetUsedWords() const;
    /// Adds up to the next probable prime; false if there is none near.
    [[nodiscard]] bool FindPrimeFromHere(int32_t rounds);

    std::vector<uint32_t> words;
    bool hasCarry = false;
};
