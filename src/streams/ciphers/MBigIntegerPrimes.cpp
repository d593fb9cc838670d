#include "streams/ciphers/MBigInteger.h"
#include "streams/ciphers/MMontgomery.h"

#include <algorithm>

namespace {

constexpr uint32_t SmallPrimeLimit = 4096;
/// How far a search goes from its random beginning before it begins anew.
constexpr uint32_t SearchWidth = 8192;

/// The odd primes below the limit, by the sieve of Eratosthenes.
std::vector<uint32_t> MakeSmallPrimes() {
    std::vector<bool> isComposite(SmallPrimeLimit);
    std::vector<uint32_t> primes;
    for (uint32_t i = 3; i < SmallPrimeLimit; i += 2) {
        if (isComposite[i]) continue;
        primes.push_back(i);
        for (uint32_t multiple = i * i; multiple < SmallPrimeLimit; multiple += 2 * i)
            isComposite[multiple] = true;
    }
    return primes;
}

const std::vector<uint32_t>& GetSmallPrimes() {
    static const std::vector<uint32_t> primes = MakeSmallPrimes();
    return primes;
}

/// Marks the distances from an odd number, halved, at which a small prime divides.
std::vector<bool> SieveFrom(const MBigInteger& start) {
    std::vector<bool> isComposite(SearchWidth / 2);
    for (const uint32_t prime : GetSmallPrimes()) {
        uint32_t distance = (prime - start.ModuloWord(prime)) % prime;
        if (distance % 2 != 0) distance += prime;
        for (; distance < SearchWidth; distance += 2 * prime) isComposite[distance / 2] = true;
    }
    return isComposite;
}

/// The test's view of an odd number n: n - 1 is an odd number times a power of two. The number outlives it.
class PrimeTest {
public:
    explicit PrimeTest(const MBigInteger& number) : number(number), montgomery(number) {
        MBigInteger lower = number;
        lower.Subtract(1);
        one = montgomery.ToForm(MBigInteger(number.GetSize(), 1));
        minusOne = montgomery.ToForm(lower);
        odd = lower;
        for (; !odd.IsOdd(); ++twos) odd.ShiftRight(1);
    }

    /// Whether a random base finds nothing against the number, which is above 3.
    [[nodiscard]] bool PassesRound() const {
        MBigInteger power = montgomery.Power(montgomery.ToForm(MakeBase()), odd);
        if (power.Compare(one) == 0) return true;
        for (int32_t i = 0; i < twos; ++i) {
            if (power.Compare(minusOne) == 0) return true;
            power = montgomery.Multiply(power, power);
        }
        return false;
    }

private:
    /// From 2 to n - 2.
    [[nodiscard]] MBigInteger MakeBase() const {
        MBigInteger count = number;
        count.Subtract(3);
        MBigInteger base(number.GetSize());
        base.SetRandom();
        base = base.Modulo(count);
        base.Add(2);
        return base;
    }

    const MBigInteger& number;
    MMontgomery montgomery;
    MBigInteger odd;
    MBigInteger one;
    MBigInteger minusOne;
    int32_t twos = 0;
};

bool PassesRounds(const MBigInteger& number, int32_t rounds) {
    const PrimeTest test(number);
    for (int32_t i = 0; i < rounds; ++i) {
        if (!test.PassesRound()) return false;
    }
    return true;
}

}  // namespace

bool MBigInteger::IsProbablePrime(int32_t rounds) const {
    if (!IsOdd()) return IsEqual(2);
    if (IsEqual(1)) return false;
    for (const uint32_t prime : GetSmallPrimes()) {
        if (ModuloWord(prime) == 0) return IsEqual(prime);
    }
    return PassesRounds(*this, rounds);
}

void MBigInteger::SetRandomPrime(int32_t rounds) {
    RequireWords();
    do {
        SetRandom();
        SetBit(0);
        SetBit(GetCount() * WordBits - 1);
        SetBit(GetCount() * WordBits - 2);
    } while (!FindPrimeFromHere(rounds));
}

bool MBigInteger::FindPrimeFromHere(int32_t rounds) {
    const std::vector<bool> isComposite = SieveFrom(*this);
    uint32_t passed = 0;
    for (uint32_t distance = 0; distance < SearchWidth; distance += 2) {
        if (isComposite[distance / 2]) continue;
        Add(distance - passed);
        passed = distance;
        if (HasCarry()) return false;
        if (PassesRounds(*this, rounds)) return true;
    }
    return false;
}
