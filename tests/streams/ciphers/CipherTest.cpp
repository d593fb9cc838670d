#include "streams/ciphers/MBlowfishStream.h"
#include "streams/ciphers/MRSAStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

namespace {

std::string Encipher(MBufferingStream& cipher, const std::string& plain, size_t piece = 1 << 20) {
    MMemoryStream target;
    cipher.Open(&target, true);
    for (size_t i = 0; i < plain.size(); i += piece)
        cipher.Write(plain.data() + i, static_cast<int32_t>(std::min(piece, plain.size() - i)));
    cipher.FinishBlock();
    return MBytesOf(target);
}

std::string Decipher(MBufferingStream& cipher, const std::string& enciphered, int32_t piece = 1 << 20) {
    MMemoryStream source = MStreamOf(enciphered);
    cipher.Open(&source, false);
    return MReadAll(cipher, piece);
}

/// Of RSA, which has two keys, the last argument tells whether it is the private one.
template <class Cipher, class... Private>
void SetKey(Cipher& cipher, const std::string& key, Private... isPrivate) {
    MMemoryStream source = MStreamOf(key);
    cipher.SetKey(source, isPrivate...);
}

template <class Cipher, class... Private>
std::string GetKey(Cipher& cipher, Private... isPrivate) {
    MMemoryStream key;
    cipher.GetKey(key, isPrivate...);
    return MBytesOf(key);
}

std::string Combine(std::string bytes, const std::string& other) {
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(bytes[i] ^ other[i]);
    return bytes;
}

std::string Word64(uint64_t value) {
    return MWordOf(static_cast<int64_t>(value), 8);
}

}  // namespace

TEST(Blowfish, GivesThePublishedBlocks) {
    // Of the set of test vectors that goes with the algorithm's publication.
    constexpr struct {
        uint64_t key, plain, enciphered;
    } vectors[] = {
        {0x3000000000000000, 0x1000000000000001, 0x7D856F9A613063F2},
        {0x0123456789ABCDEF, 0x1111111111111111, 0x61F9C3802281B096},
        {0xFEDCBA9876543210, 0x0123456789ABCDEF, 0x0ACEAB0FC6A0A28D},
        {0x7CA110454A1A6E57, 0x01A1D6D039776742, 0x59C68245EB05282B},
    };
    const auto bytesOf = [](uint64_t value) {
        const std::string bytes = Word64(value);
        return std::string(bytes.rbegin(), bytes.rend());
    };
    MBlowfishStream cipher;
    for (const auto& [key, plain, enciphered] : vectors) {
        // The cipher takes its key in a circle, so seven times a key of 8 bytes gives the schedule of that
        // key.
        std::string longKey;
        while (longKey.size() < MBlowfishStream::KeySize) longKey += bytesOf(key);
        SetKey(cipher, longKey);
        EXPECT_EQ(Encipher(cipher, bytesOf(plain)), bytesOf(enciphered)) << std::hex << key;
        EXPECT_EQ(Decipher(cipher, bytesOf(enciphered)), bytesOf(plain)) << std::hex << key;
    }
}

TEST(Blowfish, ChainsBlocksAndMasksTheShortLastOneWithThePlainBlockBeforeIt) {
    const std::string plain = MTestNoise(20);
    MBlowfishStream cipher;
    cipher.SetKeyText("key");
    const std::string first = Encipher(cipher, plain.substr(0, 8));
    const std::string second = Encipher(cipher, Combine(plain.substr(8, 8), first));
    EXPECT_EQ(Encipher(cipher, plain), first + second + Combine(plain.substr(16), plain.substr(8, 8)));
    EXPECT_EQ(Encipher(cipher, "12345"), "12345");
    EXPECT_EQ(Decipher(cipher, "12345"), "12345");
    cipher.SetModification(nullptr);
    EXPECT_EQ(Encipher(cipher, plain.substr(0, 8) + plain.substr(0, 8)), first + first);
    EXPECT_EQ(Decipher(cipher, first + first), plain.substr(0, 8) + plain.substr(0, 8));
}

TEST(Blowfish, PiecesOfAnySizeGiveTheSame) {
    MBlowfishStream cipher;
    cipher.GenerateKeys();
    // Around the sizes of a block, of blocks that are deciphered side by side and of what is passed at once.
    for (const size_t size : {9u, 31u, 39u, 8191u, 8192u, 20001u}) {
        const std::string plain = MTestNoise(size);
        const std::string enciphered = Encipher(cipher, plain);
        for (const int32_t piece : {1, 8, 13, 8200}) {
            EXPECT_TRUE(Encipher(cipher, plain, static_cast<size_t>(piece)) == enciphered)
                << size << " by " << piece;
            EXPECT_TRUE(Decipher(cipher, enciphered, piece) == plain) << size << " by " << piece;
        }
        MMemoryStream source = MStreamOf(enciphered);
        MTricklingStream slow(&source);
        MBreakingStream breaking(&slow);
        cipher.Open(&breaking, false);
        EXPECT_TRUE(MReadAll(cipher, 777) == plain) << size << " from a slow source that breaks";
    }
}

TEST(Blowfish, KeysTravelThroughStreamsAndTexts) {
    const std::string plain = MTestNoise(64);
    MBlowfishStream first, second;
    first.GenerateKeys();
    EXPECT_NE(Encipher(second, plain), Encipher(first, plain));
    SetKey(second, GetKey(first));
    EXPECT_EQ(FailureOf([&] { SetKey(second, "too short"); }),
              "100: Could not read required data from stream.");
    EXPECT_EQ(Encipher(second, plain), Encipher(first, plain));
    // A text is filled with zeros and cut at 56 characters, of which the low bytes count.
    for (const std::u16string& text : {std::u16string(u"\u0141\u00E9"), std::u16string(60, u'k')}) {
        first.SetKeyText(Wide(text.c_str()));
        SetKey(second, text.size() == 2 ? "\x41\xE9" + std::string(54, 0) : std::string(56, 'k'));
        EXPECT_EQ(Encipher(first, plain), Encipher(second, plain));
    }
}

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
