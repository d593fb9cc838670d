#include "streams/ciphers/MBigInteger.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>

namespace {

// The rows of the tables were computed by Python's integers.

/// A number from hexadecimal digits, in just the words that it needs.
MBigInteger Number(const std::string& digits) {
    std::vector<uint8_t> bytes;
    for (size_t end = digits.size(); end > 0; end -= std::min<size_t>(end, 2)) {
        const size_t start = end < 2 ? 0 : end - 2;
        bytes.push_back(static_cast<uint8_t>(std::stoi(digits.substr(start, end - start), nullptr, 16)));
    }
    MBigInteger number;
    number.SetBytes(bytes);
    return number;
}

/// In hexadecimal digits, without zeros in front.
std::string Digits(const MBigInteger& number) {
    std::string digits;
    for (int32_t bit = (number.GetBitCount() + 3) / 4 * 4; bit > 0; bit -= 4)
        digits += "0123456789ABCDEF"[number.GetBit(bit - 1) * 8 + number.GetBit(bit - 2) * 4 +
                                     number.GetBit(bit - 3) * 2 + number.GetBit(bit - 4)];
    return digits.empty() ? "0" : digits;
}

TEST(MBigInteger, ProductsAndQuotients) {
    // Some rows take the rare step of a division in which a word of the quotient was guessed too large.
    constexpr struct {
        const char *a, *b, *product, *quotient, *remainder;
    } cases[] = {
        {"FFFFFFFF", "FFFFFFFF", "FFFFFFFE00000001", "1", "0"},
        {"7FFFFFFF800000010000000000000000", "800000008000000200000005",
         "400000000000000140000001FFFFFFFF800000050000000000000000", "FFFFFFFD", "80000000800000010000000F"},
        {"8000000000000000FFFFFFFE00000000", "80000000000000000000FFFF",
         "400000000000000080007FFE800000000000FFFEFFFE000200000000", "100000000", "FFFEFFFF00000000"},
        {"FFFFFFFE000000008000000000000000", "FFFF0000000080000000",
         "FFFEFFFE000280007FFE80000000400000000000000000000000", "10000FFFEFFFE", "7FFE0000800100000000"},
        {"5", "10000000000000000", "50000000000000000", "0", "5"},
        {"A6B563B1E794EE14E1454C40C439F34A", "AC8BE7D742840D2B",
         "705CFA7283CDD202A991407B3EF608B847E050986D3E9F6E", "F756A62D69950B2A", "1996F042E0F7F13C"},
    };
    for (const auto& [a, b, product, quotient, remainder] : cases) {
        MBigInteger rest;
        EXPECT_EQ(Digits(Number(a).Multiply(Number(b))), product);
        EXPECT_EQ(Digits(Number(a).Divide(Number(b), rest)), quotient);
        EXPECT_EQ(Digits(rest), remainder);
        EXPECT_EQ(rest.GetSize(), Number(b).GetSize());
    }
}

TEST(MBigInteger, PowersModuloOddNumbers) {
    constexpr struct {
        const char *base, *exponent, *modulus, *power;
    } Cases[] = {
        {"0", "5", "7", "0"},
        {"5", "0", "7", "1"},
        {"7B", "1C8", "1", "0"},
        {"3", "10001", "FFFFFFFB", "CAF337C4"},
        {"FFFFFFFFFFFFFFFF", "FFFFFFFFFFFFFFFF", "FFFFFFFFFFFFFFC5", "44D4C86A1C084F2C"},
        {"30E56D5813CD158AF92ED2607383C017BD756A407DBEECE423BE4C78BB4AE3DD3447E6046",
         "A5998165B1DD1B80230A102C4786A2284CFDB1E79E1FCC46A5157170CC8FC526",
         "85F9EB87E7DB270D1E2162169FBBA63829D144E441BC858EB0B4362E4E18A363",
         "3E9D835E732634BCD683E39F099F78B3F5E85D225F7F89770F426828B70A15BA"},
        {"FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFE", "10000000000000000000000001", "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF",
         "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFE"},
    };
    for (const auto& [base, exponent, modulus, power] : Cases)
        EXPECT_EQ(Digits(Number(base).PowerModulo(Number(exponent), Number(modulus))), power) << modulus;
    // Words that are 0 at the upper end change nothing.
    MBigInteger modulus = Number("FFFFFFFB");
    modulus.SetSize(40);
    EXPECT_EQ(Digits(Number("3").PowerModulo(Number("10001"), modulus)), "CAF337C4");
}

TEST(MBigInteger, InversesModuloAnyNumberAndZeroWhereThereIsNone) {
    constexpr struct {
        const char *number, *modulus, *inverse;
    } Cases[] = {
        {"1", "2", "1"},
        {"3", "7", "5"},
        {"A", "7", "5"},
        {"4", "8", "0"},
        {"0", "7", "0"},
        {"5", "1", "0"},
        {"10001", "10000000000000000", "FFFF0000FFFF0001"},
        {"2C1D86FBA579B31826E0A84FD2EC50D44EDC59B914A48E82458191DC903573959999D",
         "D84355B86DB56E5B94929216C79F25EEFEFA0243200C54E9B096EBF51EFC20C8",
         "804BEC3E3CBB112B3B28E0915AFBD0E240E44489A06F7B7BE9C09A27F9215325"},
    };
    for (const auto& [number, modulus, inverse] : Cases)
        EXPECT_EQ(Digits(Number(number).InvertModulo(Number(modulus))), inverse) << modulus;
}

TEST(MBigInteger, QuotientTimesDivisorAndRemainderGiveRandomDividends) {
    for (int32_t i = 0; i < 500; ++i) {
        MBigInteger dividend(4 * (1 + i % 17));
        MBigInteger divisor(4 * (1 + i % 7));
        dividend.SetRandom();
        divisor.SetRandom();
        // Long runs of equal bits lead to the edges of the guess.
        if (i % 3 == 0) divisor.ShiftRight(i % 90);
        if (i % 5 == 0) dividend.Subtract(dividend.Modulo(Number("FFFFFFFF00000000")));
        if (divisor.IsEqual(0)) continue;
        MBigInteger remainder;
        MBigInteger product = dividend.Divide(divisor, remainder).Multiply(divisor);
        EXPECT_LT(remainder.Compare(divisor), 0);
        product.Add(remainder);
        EXPECT_EQ(Digits(product), Digits(dividend)) << Digits(divisor);
    }
}

TEST(MBigInteger, TheWordsAreFixedAndTheCarryTellsWhatWentBeyond) {
    MBigInteger number(5);
    EXPECT_EQ(number.GetSize(), 8);
    number.Subtract(1);
    EXPECT_TRUE(number.HasCarry());
    EXPECT_EQ(Digits(number), "FFFFFFFFFFFFFFFF");
    number.Add(Number("10000000000000002"));
    EXPECT_TRUE(number.HasCarry());
    EXPECT_TRUE(number.IsEqual(1));
    number.Add(Number("FFFFFFFF00000006"));
    EXPECT_FALSE(number.HasCarry());
    EXPECT_EQ(Digits(number), "FFFFFFFF00000007");
    number.Subtract(Number("8"));
    EXPECT_EQ(Digits(number), "FFFFFFFEFFFFFFFF");
    number.ShiftRight(36);
    EXPECT_EQ(Digits(number), "FFFFFFF");
    number.ShiftRight(1000);
    EXPECT_TRUE(number.IsEqual(0));
    number = Number("123456789ABCDEF0");
    for (const int32_t size : {4, 12}) {
        number.SetSize(size);
        EXPECT_EQ(Digits(number), "9ABCDEF0") << size;
    }
}

TEST(MBigInteger, StreamsAsManyWordsAsItHasLowestFirst) {
    MBigInteger number = Number("0102030405");
    MMemoryStream stream;
    number.Write(stream);
    EXPECT_EQ(MBytesOf(stream), std::string("\5\4\3\2\1\0\0\0", 8));
    stream.Rewind();
    MBigInteger copy(4);
    copy.Read(stream);
    EXPECT_EQ(Digits(copy), "2030405");
    EXPECT_EQ(FailureOf([&] { number.Read(stream); }), "100: Could not read required data from stream.");

    std::array<uint8_t, 7> bytes{9, 9, 9, 9, 9, 9, 9};
    copy.GetBytes(bytes);
    EXPECT_EQ(bytes, (std::array<uint8_t, 7>{5, 4, 3, 2, 0, 0, 0}));
}

TEST(MBigInteger, WithoutWordsEveryOperationFails) {
    MBigInteger bare, one(4, 1);
    MMemoryStream stream;
    for (const std::function<void()>& operation : std::initializer_list<std::function<void()>>{
             [&] { bare.SetValue(1); }, [&] { bare.Write(stream); }, [&] { bare.Read(stream); },
             [&] { bare.Add(1); }, [&] { one.Subtract(bare); }, [&] { (void)one.Multiply(bare); },
             [&] { (void)bare.Modulo(one); }, [&] { (void)one.Compare(bare); },
             [&] { (void)one.PowerModulo(one, bare); }, [&] { (void)one.InvertModulo(bare); },
             [&] { (void)bare.IsProbablePrime(1); }, [&] { bare.SetRandomPrime(1); }})
        EXPECT_EQ(FailureOf(operation), "0: Big integer object has not been initialized.");
    EXPECT_EQ(FailureOf([&] { (void)one.Modulo(MBigInteger(4)); }), "0: Big integer division by zero.");
    EXPECT_EQ(FailureOf([&] { (void)one.InvertModulo(MBigInteger(4)); }), "0: Big integer division by zero.");
    EXPECT_EQ(FailureOf([&] { (void)one.PowerModulo(one, MBigInteger(8, 6)); }),
              "0: Big integer modulus is not odd.");
}

TEST(MBigInteger, PrimesAreToldFromNumbersThatLookLikeThem) {
    // What small primes decide, the largest below 2^64, and one of Mersenne's.
    for (const char* prime :
         {"2", "D", "FFD", "1003", "FFFFFFFFFFFFFFC5", "7FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF"})
        EXPECT_TRUE(Number(prime).IsProbablePrime(20)) << prime;
    // One of Carmichael's numbers, a product of two primes just above the small ones, the mistake of Fermat,
    // and a strong pseudoprime to the first thirteen primes as bases.
    for (const char* composite : {"0", "1", "4", "231", "101202D", "100000001", "2BE6951ADC5B22410A5FD"})
        EXPECT_FALSE(Number(composite).IsProbablePrime(20)) << composite;
}

TEST(MBigInteger, RandomPrimesHaveTheirTwoHighestBits) {
    MBigInteger first(8), second(8);
    first.SetRandomPrime(20);
    second.SetRandomPrime(20);
    EXPECT_TRUE(first.IsProbablePrime(5));
    EXPECT_EQ(first.Multiply(second).GetBitCount(), 128);
    EXPECT_NE(Digits(first), Digits(second));
}

}  // namespace
