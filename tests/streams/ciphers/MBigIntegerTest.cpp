#include "streams/ciphers/MBigInteger.h"
#include "streams/basic/MMemoryStream.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <array>
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

std::string Digits(const MBigInteger& number) {
    std::string digits;
    for (int32_t bit = (number.GetBitCount() + 3) / 4 * 4; bit > 0; bit -= 4) {
        int value = 0;
        for (int32_t i = 1; i <= 4; ++i) value = value * 2 + number.GetBit(bit - i);
        digits += "0123456789ABCDEF"[value];
    }
    return digits.empty() ? "0" : digits;
}

TEST(MBigInteger, Arithmetic) {
    // Some rows take the rare step of a division in which a word of the quotient was guessed too large.
    constexpr struct {
        const char *a, *b, *sum, *difference, *product, *quotient, *remainder;
    } Cases[] = {
        {"1", "1", "2", "0", "1", "1", "0"},
        {"FFFFFFFF", "FFFFFFFF", "1FFFFFFFE", "0", "FFFFFFFE00000001", "1", "0"},
        {"FFFFFFFFFFFFFFFF", "FFFFFFFF", "100000000FFFFFFFE", "FFFFFFFF00000000", "FFFFFFFEFFFFFFFF00000001",
         "100000001", "0"},
        {"FFFFFFFFFFFFFFFFFFFFFFFF", "FFFFFFFFFFFFFFFF", "100000000FFFFFFFFFFFFFFFE",
         "FFFFFFFF0000000000000000", "FFFFFFFFFFFFFFFEFFFFFFFF0000000000000001", "100000000", "FFFFFFFF"},
        {"7FFFFFFF800000010000000000000000", "800000008000000200000005", "80000000000000018000000200000005",
         "7FFFFFFF000000007FFFFFFDFFFFFFFB", "400000000000000140000001FFFFFFFF800000050000000000000000",
         "FFFFFFFD", "80000000800000010000000F"},
        {"800000000000000000000003", "200000000000000000000001", "A00000000000000000000004",
         "600000000000000000000002", "100000000000000000000000E00000000000000000000003", "3",
         "200000000000000000000000"},
        {"8000000000000000FFFFFFFE00000000", "80000000000000000000FFFF", "8000000080000000FFFFFFFE0000FFFF",
         "7FFFFFFF80000000FFFFFFFDFFFF0001", "400000000000000080007FFE800000000000FFFEFFFE000200000000",
         "100000000", "FFFEFFFF00000000"},
        {"FFFFFFFE000000008000000000000000", "FFFF0000000080000000", "FFFFFFFE0000FFFF8000000080000000",
         "FFFFFFFDFFFF00017FFFFFFF80000000", "FFFEFFFE000280007FFE80000000400000000000000000000000",
         "10000FFFEFFFE", "7FFE0000800100000000"},
        {"5", "10000000000000000", "10000000000000005", "FFFFFFFFFFFFFFFB", "50000000000000000", "0", "5"},
        {"80000000000000000000000000000000", "800000000000000000000000", "80000000800000000000000000000000",
         "7FFFFFFF800000000000000000000000", "40000000000000000000000000000000000000000000000000000000",
         "100000000", "0"},
        {"B9096A04E7D80068", "1AFAE5A3B", "B9096A0697865AA3", "B9096A033829A62D", "13804DF1C461B6622BD9CA7F8",
         "6DBB80D4", "1363EC78C"},
        {"A6B563B1E794EE14E1454C40C439F34A", "AC8BE7D742840D2B", "A6B563B1E794EE158DD1341806BE0075",
         "A6B563B1E794EE1434B9646981B5E61F", "705CFA7283CDD202A991407B3EF608B847E050986D3E9F6E",
         "F756A62D69950B2A", "1996F042E0F7F13C"},
        {"E7CA430E92AC3D4253D23C0BDF43EFB219FCFC64E7AA8576D96E5ADFA2BEEE31", "106E82A012B5C5CD1",
         "E7CA430E92AC3D4253D23C0BDF43EFB219FCFC64E7AA8577E05684E0CE1B4B02",
         "E7CA430E92AC3D4253D23C0BDF43EFB219FCFC64E7AA8575D28630DE77629160",
         "EE0B35F5ED5E73E5B2B7DEC92F7A547813938F245AE988954137397B86FB49785CB015E150161201",
         "E1B35F3C640B77232B2C7F21E03684B048B1CCBC8D6F554C", "74E01D79BCE2FB25"},
        {"F972A36D51B31A6C20050ED31A6E72B91333BC1CFE6C2B036820212C",
         "B56A41526977A41B730BED9C94A67F00F335C357",
         "F972A36D51B31A6CD56F502583E616D4863FA9B99312AA045B55E483",
         "F972A36D51B31A6B6A9ACD80B0F6CE9DA027CE8069C5AC0274EA5DD5",
         "B0C596AA5F0329D406B3942BC117AAE93B8776BA506287C891C852D9F23B6B57896CE66A4F4D185AE20E18"
         "9C7E4BC9F4",
         "16000C22F3F09E1A7", "AEC87D62A3912C7E244F322F865E8B3384F3C6B"},
    };
    for (const auto& [a, b, sum, difference, product, quotient, remainder] : Cases) {
        SCOPED_TRACE(std::string(a) + " and " + b);
        const MBigInteger left = Number(a);
        const MBigInteger right = Number(b);
        MBigInteger result = left;
        result.SetSize(std::max(left.GetSize(), right.GetSize()) + MBigInteger::WordSize);
        result.Add(right);
        EXPECT_EQ(Digits(result), sum);
        EXPECT_FALSE(result.HasCarry());
        result.Subtract(right);
        EXPECT_EQ(Digits(result), a);

        result = left.Compare(right) < 0 ? right : left;
        result.Subtract(left.Compare(right) < 0 ? left : right);
        EXPECT_EQ(Digits(result), difference);
        EXPECT_EQ(Digits(left.Multiply(right)), product);
        EXPECT_EQ(Digits(right.Multiply(left)), product);
        EXPECT_EQ(Digits(left.Divide(right, result)), quotient);
        EXPECT_EQ(Digits(result), remainder);
        EXPECT_EQ(result.GetSize(), right.GetSize());
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
        {"6D542861CD55E7D67EAE6AC4A9E89C5BC7", "8491CABEA0AFE35617BCC74D", "A0187B4D51209E8F332726D1",
         "53E9F77D63367B7D20FCAE0C"},
        {"151832C9E233AA391808FC20813E1DCFB592BDE31C34D2EA16", "4891A61BC3B1B366B1852AC840E0529930B9F609",
         "94DAF46767A9B05C7DFB27E8D775F593CE3AD2B3", "230D1FFAD3CB4777BB92AE08BDF25DBD4A72B5B0"},
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
        {"10001", "B8A6ACD69988235655FAC782", "D70842FF268C839A6746445"},
        {"EC246272BE0EAE810B08A72880E4B", "B8A6ACD69988235655FAC782", "A6B514A339A0C72CFCE152F"},
        {"10001", "EED299E4D532B79F8E41A78F4617EDAAA37FEBA2", "E460F29798A522616B392F91DC169FC93106EFFF"},
        {"DCF8BB4EC0652EDC8144167E0E2A62A27EAD5281F772F", "EED299E4D532B79F8E41A78F4617EDAAA37FEBA2",
         "142E09D1BDBE94067A5F11477ABE52357669466B"},
        {"10001", "D84355B86DB56E5B94929216C79F25EEFEFA0243200C54E9B096EBF51EFC20C8",
         "D2C093F9FE58302AE958092C4FEF656D4A6863E9FC826801B108F2FBD6ED4819"},
        {"2C1D86FBA579B31826E0A84FD2EC50D44EDC59B914A48E82458191DC903573959999D",
         "D84355B86DB56E5B94929216C79F25EEFEFA0243200C54E9B096EBF51EFC20C8",
         "804BEC3E3CBB112B3B28E0915AFBD0E240E44489A06F7B7BE9C09A27F9215325"},
    };
    for (const auto& [number, modulus, inverse] : Cases)
        EXPECT_EQ(Digits(Number(number).InvertModulo(Number(modulus))), inverse) << modulus;
}

TEST(MBigInteger, QuotientTimesDivisorAndRemainderGiveRandomDividends) {
    for (int32_t i = 0; i < 2000; ++i) {
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
    number.Add(2);
    EXPECT_TRUE(number.HasCarry());
    EXPECT_TRUE(number.IsEqual(1));
    number.Add(Number("10000000000000000"));
    EXPECT_TRUE(number.HasCarry());
    number.Add(7);
    EXPECT_FALSE(number.HasCarry());

    number = Number("123456789ABCDEF0");
    number.ShiftRight(36);
    EXPECT_EQ(Digits(number), "1234567");
    number.ShiftRight(1000);
    EXPECT_TRUE(number.IsEqual(0));
    number = Number("123456789ABCDEF0");
    number.SetSize(4);
    EXPECT_EQ(Digits(number), "9ABCDEF0");
    number.SetSize(12);
    EXPECT_EQ(Digits(number), "9ABCDEF0");
    EXPECT_EQ(number.GetSize(), 12);
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
    const std::string uninitialized = "0: Big integer object has not been initialized.";
    MBigInteger bare, one(4, 1);
    MMemoryStream stream;
    const auto expectFailure = [&](auto&& operation) { EXPECT_EQ(FailureOf(operation), uninitialized); };
    expectFailure([&] { bare.SetValue(1); });
    expectFailure([&] { bare.Write(stream); });
    expectFailure([&] { bare.Read(stream); });
    expectFailure([&] { bare.Add(1); });
    expectFailure([&] { one.Subtract(bare); });
    expectFailure([&] { (void)one.Multiply(bare); });
    expectFailure([&] { (void)bare.Modulo(one); });
    expectFailure([&] { (void)one.Compare(bare); });
    expectFailure([&] { (void)one.PowerModulo(one, bare); });
    expectFailure([&] { (void)bare.PowerModulo(one, one); });
    expectFailure([&] { (void)one.InvertModulo(bare); });
    expectFailure([&] { (void)bare.IsProbablePrime(1); });
    expectFailure([&] { bare.SetRandomPrime(1); });
    EXPECT_EQ(FailureOf([&] { (void)one.Modulo(MBigInteger(4)); }), "0: Big integer division by zero.");
    EXPECT_EQ(FailureOf([&] { (void)one.InvertModulo(MBigInteger(4)); }), "0: Big integer division by zero.");
    EXPECT_EQ(FailureOf([&] { (void)one.PowerModulo(one, MBigInteger(8, 6)); }),
              "0: Big integer modulus is not odd.");
}

TEST(MBigInteger, PrimesAreToldFromNumbersThatLookLikeThem) {
    // Mersenne primes, the largest below 2^32 and 2^64, and what small primes decide.
    for (const char* prime : {"2", "3", "D", "FFD", "1003", "FFFFFFFB", "FFFFFFFFFFFFFFC5",
                              "1FFFFFFFFFFFFFFF", "7FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF"})
        EXPECT_TRUE(Number(prime).IsProbablePrime(20)) << prime;
    // Two of Carmichael's numbers, a product of two primes just above the small ones, the mistakes of Fermat and
    // Mersenne, and strong pseudoprimes to the first twelve and thirteen primes as bases.
    for (const char* composite :
         {"0", "1", "4", "231", "1450C09B6C1", "101202D", "100000001", "10000000000000001",
          "7FFFFFFFFFFFFFFFF", "437AE92817F9FC85B7E5", "2BE6951ADC5B22410A5FD"})
        EXPECT_FALSE(Number(composite).IsProbablePrime(20)) << composite;
}

TEST(MBigInteger, RandomPrimesHaveTheirTwoHighestBitsAndDiffer) {
    for (const int32_t size : {4, 8, 32}) {
        MBigInteger first(size), second(size);
        first.SetRandomPrime(20);
        second.SetRandomPrime(20);
        EXPECT_TRUE(first.IsProbablePrime(5));
        EXPECT_EQ(first.Multiply(second).GetBitCount(), size * 16);
        EXPECT_NE(Digits(first), Digits(second));
    }
}

}  // namespace
