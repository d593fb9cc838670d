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
    EXPECT_EQ(cipher.GetKeySize(), 16);
    cipher.GenerateKeys(false);
    for (const size_t size : {1u, 8u, 9u}) {
        const size_t blocks = (size + 7) / 8;
        const std::string plain(size, 'p');
        const std::string enciphered = Encipher(cipher, plain);
        EXPECT_EQ(enciphered.size(), 16 * blocks);
        EXPECT_EQ(Decipher(cipher, enciphered), plain + std::string(8 * blocks - size, 0));
    }
    cipher.SetKeyLength(0);
    EXPECT_EQ(FailureOf([&] { Encipher(cipher, "x"); }), "102: Buffering stream has not been initialized.");
}

TEST(RSA, GeneratedKeysTravelThroughStreams) {
    const std::string plain = "thirty-two bytes of a plain text";
    for (const bool isExponentRandom : {false, true}) {
        MRSAStream pair, publicHalf, privateHalf;
        for (MRSAStream* cipher : {&pair, &publicHalf, &privateHalf}) cipher->SetKeyLength(256);
        pair.GenerateKeys(isExponentRandom);
        const std::string publicKey = GetKey(pair, false);
        const std::string privateKey = GetKey(pair, true);
        EXPECT_EQ(publicKey.substr(0, 32), privateKey.substr(0, 32));
        EXPECT_EQ(publicKey.substr(32) == MWordOf(0x10001) + std::string(28, 0), !isExponentRandom);
        SetKey(publicHalf, publicKey, false);
        SetKey(privateHalf, privateKey, true);
        EXPECT_EQ(Decipher(privateHalf, Encipher(publicHalf, plain)), plain);
        EXPECT_EQ(FailureOf([&] { Encipher(privateHalf, plain); }), "0: Cryptographic key is not valid.");
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
