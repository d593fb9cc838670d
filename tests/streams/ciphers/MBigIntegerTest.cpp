#include "streams/ciphers/MBigInteger.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

namespace {

// The rows of the tables were computed by Python's integers.

/// A number from hexadecimal digits, in just the words that it needs.
MBigInteger Number(std::string digits) {
    if (digits.size() % 2) digits.insert(0, "0");
    MMemoryStream stream;
    stream.StoreHexText(Heap(digits.c_str()));
    std::string bytes = MBytesOf(stream);
    std::reverse(bytes.begin(), bytes.end());
    MBigInteger number;
    number.SetBytes({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
    return number;
}

}  // namespace

TEST(MBigInteger, PowersModuloOddNumbers) {
    constexpr struct {
        const char *base, *exponent, *modulus, *power;
    } cases[] = {
        {"0", "5", "7", "0"},
        {"5", "0", "7", "1"},
        {"7B", "1C8", "1", "0"},
        {"FFFFFFFFFFFFFFFF", "FFFFFFFFFFFFFFFF", "FFFFFFFFFFFFFFC5", "44D4C86A1C084F2C"},
        {"30E56D5813CD158AF92ED2607383C017BD756A407DBEECE423BE4C78BB4AE3DD3447E6046",
         "A5998165B1DD1B80230A102C4786A2284CFDB1E79E1FCC46A5157170CC8FC526",
         "85F9EB87E7DB270D1E2162169FBBA63829D144E441BC858EB0B4362E4E18A363",
         "3E9D835E732634BCD683E39F099F78B3F5E85D225F7F89770F426828B70A15BA"},
    };
    for (const auto& [base, exponent, modulus, power] : cases) {
        // Words that are 0 at the upper end change nothing.
        MBigInteger longer = Number(modulus);
        longer.SetSize(40);
        for (const MBigInteger& odd : {Number(modulus), longer})
            EXPECT_EQ(Number(base).PowerModulo(Number(exponent), odd).Compare(Number(power)), 0) << modulus;
    }
    EXPECT_EQ(FailureOf([] { (void)Number("5").PowerModulo(Number("5"), Number("6")); }),
              "0: Big integer modulus is not odd.");
}

TEST(MBigInteger, InversesModuloAnyNumberAndZeroWhereThereIsNone) {
    constexpr struct {
        const char *number, *modulus, *inverse;
    } cases[] = {
        {"1", "2", "1"},
        {"3", "7", "5"},
        {"4", "8", "0"},
        {"0", "7", "0"},
        {"10001", "10000000000000000", "FFFF0000FFFF0001"},
        {"2C1D86FBA579B31826E0A84FD2EC50D44EDC59B914A48E82458191DC903573959999D",
         "D84355B86DB56E5B94929216C79F25EEFEFA0243200C54E9B096EBF51EFC20C8",
         "804BEC3E3CBB112B3B28E0915AFBD0E240E44489A06F7B7BE9C09A27F9215325"},
    };
    for (const auto& [number, modulus, inverse] : cases)
        EXPECT_EQ(Number(number).InvertModulo(Number(modulus)).Compare(Number(inverse)), 0) << modulus;
}

TEST(MBigInteger, QuotientTimesDivisorAndRemainderGiveTheDividend) {
    // In the first pairs a word of the quotient is guessed too large.
    std::vector<std::pair<MBigInteger, MBigInteger>> pairs = {
        {Number("7FFFFFFF800000010000000000000000"), Number("800000008000000200000005")},
        {Number("8000000000000000FFFFFFFE00000000"), Number("80000000000000000000FFFF")},
        {Number("FFFFFFFE000000008000000000000000"), Number("FFFF0000000080000000")},
        {Number("5"), Number("10000000000000000")},
    };
    for (int32_t i = 0; i < 300; ++i) {
        auto& [dividend, divisor] =
            pairs.emplace_back(MBigInteger(4 * (1 + i % 17)), MBigInteger(4 * (1 + i % 7)));
        dividend.SetRandom();
        divisor.SetRandom();
        if (i % 3 == 0) divisor.ShiftRight(i % 31);
        if (divisor.IsEqual(0)) divisor.SetValue(1);
    }
    for (const auto& [dividend, divisor] : pairs) {
        MBigInteger remainder;
        MBigInteger product = dividend.Divide(divisor, remainder).Multiply(divisor);
        EXPECT_LT(remainder.Compare(divisor), 0);
        product.Add(remainder);
        EXPECT_EQ(product.Compare(dividend), 0);
    }
    EXPECT_EQ(FailureOf([] { (void)Number("1").Modulo(Number("0")); }), "0: Big integer division by zero.");
}

TEST(MBigInteger, TheWordsAreFixedAndTheCarryTellsWhatWentBeyond) {
    MBigInteger number(5);
    number.Subtract(1);
    EXPECT_TRUE(number.HasCarry());
    number.ShiftRight(36);
    number.SetSize(3);
    number.Add(Number("100000001"));
    EXPECT_TRUE(number.HasCarry());
    MMemoryStream stream;
    number.Write(stream);
    EXPECT_EQ(MBytesOf(stream), MWordOf(0x10000000));
    EXPECT_EQ(FailureOf([] { MBigInteger().SetValue(1); }),
              "0: Big integer object has not been initialized.");
    EXPECT_EQ(FailureOf([&] { number.Subtract(MBigInteger()); }),
              "0: Big integer object has not been initialized.");
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
    MBigInteger prime(8);
    prime.SetRandomPrime(20);
    EXPECT_TRUE(prime.IsProbablePrime(5));
    EXPECT_TRUE(prime.GetBit(63) && prime.GetBit(62));
}
