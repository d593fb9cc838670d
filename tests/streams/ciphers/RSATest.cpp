#include "streams/basic/MMemoryStream.h"
#include "streams/ciphers/MRSAStream.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

const std::string InvalidKey = "0: Cryptographic key is not valid.";
const std::string DoesNotFit = "0: Block does not fit the cryptographic key.";

std::string Encipher(MRSAStream& cipher, const std::string& plain) {
    MMemoryStream target;
    cipher.Open(&target, true);
    cipher.Write(plain.data(), static_cast<int32_t>(plain.size()));
    cipher.FinishBlock();
    return MBytesOf(target);
}

std::string Decipher(MRSAStream& cipher, const std::string& enciphered) {
    MMemoryStream source(enciphered.data(), static_cast<int32_t>(enciphered.size()));
    cipher.Open(&source, false);
    std::string plain(enciphered.size(), 0);
    plain.resize(static_cast<size_t>(cipher.Read(plain.data(), static_cast<int32_t>(plain.size()))));
    return plain;
}

/// The number in as many bytes as are asked for, lowest first.
std::string Bytes(uint64_t value, size_t size) {
    std::string bytes;
    for (size_t i = 0; i < size; ++i) bytes += static_cast<char>(i < 8 ? value >> 8 * i : 0);
    return bytes;
}

void SetKey(MRSAStream& cipher, uint64_t modulus, uint64_t exponent, bool isPrivate) {
    const auto size = static_cast<size_t>(cipher.GetKeySize());
    const std::string key = Bytes(modulus, size) + Bytes(exponent, size);
    MMemoryStream source(key.data(), static_cast<int32_t>(key.size()));
    cipher.SetKey(source, isPrivate);
}

std::string GetKey(MRSAStream& cipher, bool isPrivate) {
    MMemoryStream key;
    cipher.GetKey(key, isPrivate);
    return MBytesOf(key);
}

TEST(RSA, FollowsTheFormula) {
    MRSAStream cipher;
    cipher.SetKeyLength(64);
    // Primes 4294967291 and 4294967279; the power was computed by Python.
    constexpr uint64_t Modulus = 0xFFFFFFEA00000055;
    SetKey(cipher, Modulus, 0x10001, false);
    SetKey(cipher, Modulus, 0x81817E725D5DA2D9, true);
    EXPECT_EQ(Encipher(cipher, Bytes(0x12345678, 4)), Bytes(0x919E7451EA853D47, 8));
    EXPECT_EQ(Decipher(cipher, Bytes(0x919E7451EA853D47, 8)), Bytes(0x12345678, 4));
}

TEST(RSA, TheKeyLengthIsRoundedUpAndGivesTheBlocks) {
    MRSAStream cipher;
    EXPECT_EQ(cipher.GetKeySize(), 256);
    cipher.SetKeyLength(100);
    EXPECT_EQ(cipher.GetKeySize(), 16);
    cipher.GenerateKeys(false);
    for (const size_t size : {1u, 8u, 9u, 16u}) {
        const size_t blocks = (size + 7) / 8;
        const std::string plain(size, 'p');
        const std::string enciphered = Encipher(cipher, plain);
        EXPECT_EQ(enciphered.size(), 16 * blocks);
        EXPECT_EQ(Decipher(cipher, enciphered), plain + std::string(8 * blocks - size, 0));
    }
    cipher.SetKeyLength(0);
    EXPECT_EQ(FailureOf([&] { Encipher(cipher, "x"); }), "102: Buffering stream has not been initialized.");
    EXPECT_EQ(FailureOf([&] { cipher.GenerateKeys(false); }),
              "0: Big integer object has not been initialized.");
}

TEST(RSA, GeneratedKeysTravelThroughStreams) {
    const std::string plain = "thirty-two bytes of a plain text";
    for (const int32_t bits : {64, 256, 512}) {
        for (const bool isExponentRandom : {false, true}) {
            SCOPED_TRACE(std::to_string(bits) + (isExponentRandom ? " bits, random exponent" : " bits"));
            MRSAStream pair, publicHalf, privateHalf;
            for (MRSAStream* cipher : {&pair, &publicHalf, &privateHalf}) cipher->SetKeyLength(bits);
            pair.GenerateKeys(isExponentRandom);
            const std::string publicKey = GetKey(pair, false);
            const std::string privateKey = GetKey(pair, true);
            const auto size = static_cast<size_t>(bits / 8);
            EXPECT_EQ(publicKey.size(), 2 * size);
            EXPECT_EQ(publicKey.substr(0, size), privateKey.substr(0, size));
            EXPECT_EQ(publicKey.substr(size) == Bytes(0x10001, size), !isExponentRandom);

            MMemoryStream publicSource(publicKey.data(), static_cast<int32_t>(publicKey.size()));
            publicHalf.SetKey(publicSource, false);
            MMemoryStream privateSource(privateKey.data(), static_cast<int32_t>(privateKey.size()));
            privateHalf.SetKey(privateSource, true);
            const std::string enciphered = Encipher(publicHalf, plain);
            EXPECT_EQ(enciphered, Encipher(pair, plain));
            EXPECT_NE(enciphered.find_first_not_of('\0'), std::string::npos);
            EXPECT_EQ(Decipher(privateHalf, enciphered), plain);
            EXPECT_EQ(FailureOf([&] { Encipher(privateHalf, plain); }), InvalidKey);
        }
    }
}

TEST(RSA, KeysOfTheUsualLengthAreMadeAndWork) {
    MRSAStream cipher;
    cipher.GenerateKeys(false);
    const std::string plain(300, 'x');
    EXPECT_EQ(Decipher(cipher, Encipher(cipher, plain)), plain + std::string(84, 0));
}

TEST(RSA, HostileKeysAreRefused) {
    MRSAStream cipher;
    cipher.SetKeyLength(64);
    EXPECT_EQ(FailureOf([&] { Encipher(cipher, "text"); }), InvalidKey);
    for (const uint64_t modulus : {uint64_t(0), uint64_t(1), uint64_t(2), uint64_t(1) << 63}) {
        EXPECT_EQ(FailureOf([&] { SetKey(cipher, modulus, 3, false); }), InvalidKey) << modulus;
        EXPECT_EQ(FailureOf([&] { SetKey(cipher, modulus, 3, true); }), InvalidKey) << modulus;
    }
    MMemoryStream shortKey("only twelve.", 12);
    EXPECT_EQ(FailureOf([&] { cipher.SetKey(shortKey, false); }),
              "100: Could not read required data from stream.");
    EXPECT_EQ(GetKey(cipher, false), std::string(16, 0));
    EXPECT_EQ(FailureOf([&] { cipher.SetKeyText("text", false); }),
              "1: Service \"set crypto-stream key in text form\" is not implemented.");
}

TEST(RSA, BlocksThatAreNotBelowTheModulusAreRefused) {
    MRSAStream cipher;
    cipher.SetKeyLength(64);
    SetKey(cipher, 0x10001, 3, false);
    SetKey(cipher, 0x10001, 3, true);
    EXPECT_EQ(FailureOf([&] { Encipher(cipher, Bytes(0x10001, 4)); }), DoesNotFit);
    EXPECT_EQ(FailureOf([&] { Decipher(cipher, Bytes(0xFFFFFFFFFFFFFFFF, 8)); }), DoesNotFit);
    EXPECT_EQ(Encipher(cipher, Bytes(0x10000, 4)), Bytes(0x10000, 8));
}

}  // namespace
