#include "streams/ciphers/MRSAStream.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

std::string Encipher(MRSAStream& cipher, const std::string& plain) {
    MMemoryStream target;
    cipher.Open(&target, true);
    cipher.Write(plain.data(), static_cast<int32_t>(plain.size()));
    cipher.FinishBlock();
    return MBytesOf(target);
}

std::string Decipher(MRSAStream& cipher, const std::string& enciphered) {
    MMemoryStream source = MStreamOf(enciphered);
    cipher.Open(&source, false);
    return MReadAll(cipher);
}

void SetKey(MRSAStream& cipher, const std::string& key, bool isPrivate) {
    MMemoryStream source = MStreamOf(key);
    cipher.SetKey(source, isPrivate);
}

std::string GetKey(MRSAStream& cipher, bool isPrivate) {
    MMemoryStream key;
    cipher.GetKey(key, isPrivate);
    return MBytesOf(key);
}

std::string Word64(uint64_t value) {
    return MWordOf(static_cast<int64_t>(value), 8);
}

}  // namespace

TEST(RSA, FollowsTheFormulaAsLongAsBlocksAreBelowTheModulus) {
    MRSAStream cipher;
    cipher.SetKeyLength(64);
    // Primes 4294967291 and 4294967279; the power was computed by Python.
    SetKey(cipher, Word64(0xFFFFFFEA00000055) + Word64(0x10001), false);
    SetKey(cipher, Word64(0xFFFFFFEA00000055) + Word64(0x81817E725D5DA2D9), true);
    EXPECT_EQ(Encipher(cipher, MWordOf(0x12345678)), Word64(0x919E7451EA853D47));
    EXPECT_EQ(Decipher(cipher, Word64(0x919E7451EA853D47)), MWordOf(0x12345678));

    const std::string doesNotFit = "0: Block does not fit the cryptographic key.";
    SetKey(cipher, Word64(0x10001) + Word64(3), false);
    SetKey(cipher, Word64(0x10001) + Word64(3), true);
    EXPECT_EQ(FailureOf([&] { Encipher(cipher, MWordOf(0x10001)); }), doesNotFit);
    EXPECT_EQ(FailureOf([&] { Decipher(cipher, std::string(8, '\xFF')); }), doesNotFit);
    EXPECT_EQ(Encipher(cipher, MWordOf(0x10000)), Word64(0x10000));
}

TEST(RSA, TheKeyLengthIsRoundedUpAndGivesTheBlocks) {
    MRSAStream cipher;
    EXPECT_EQ(cipher.GetKeySize(), 256);
    cipher.SetKeyLength(100);
    cipher.GenerateKeys(false);
    const std::string enciphered = Encipher(cipher, "nine ppp.");
    EXPECT_EQ(enciphered.size(), 32u);
    EXPECT_EQ(Decipher(cipher, enciphered), "nine ppp." + std::string(7, 0));
    cipher.SetKeyLength(0);
    EXPECT_EQ(FailureOf([&] { Encipher(cipher, "x"); }), "102: Buffering stream has not been initialized.");
}

TEST(RSA, GeneratedKeysTravelThroughStreams) {
    const std::string plain = "thirty-two bytes of a plain text";
    for (const bool isExponentRandom : {false, true}) {
        MRSAStream pair, half;
        for (MRSAStream* cipher : {&pair, &half}) cipher->SetKeyLength(256);
        pair.GenerateKeys(isExponentRandom);
        const std::string publicKey = GetKey(pair, false);
        EXPECT_EQ(publicKey.substr(32) == MWordOf(0x10001) + std::string(28, 0), !isExponentRandom);
        SetKey(half, GetKey(pair, true), true);
        EXPECT_EQ(FailureOf([&] { Encipher(half, plain); }), "0: Cryptographic key is not valid.");
        EXPECT_EQ(Decipher(half, Encipher(pair, plain)), plain);
        SetKey(half, publicKey, false);
        EXPECT_EQ(Encipher(half, plain), Encipher(pair, plain));
    }
}

TEST(RSA, HostileKeysAreRefused) {
    MRSAStream cipher;
    cipher.SetKeyLength(64);
    for (const uint64_t modulus : {uint64_t(0), uint64_t(1), uint64_t(2), uint64_t(1) << 63})
        EXPECT_EQ(FailureOf([&] { SetKey(cipher, Word64(modulus) + Word64(3), true); }),
                  "0: Cryptographic key is not valid.")
            << modulus;
    EXPECT_EQ(FailureOf([&] { SetKey(cipher, "only twelve.", false); }),
              "100: Could not read required data from stream.");
    EXPECT_EQ(GetKey(cipher, false), std::string(16, 0));
}
