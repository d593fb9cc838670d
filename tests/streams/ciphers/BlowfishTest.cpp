#include "streams/basic/MMemoryStream.h"
#include "streams/ciphers/MBlowfishStream.h"
#include "tests/support/MFaultyStreams.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

std::string EightBytes(uint64_t value) {
    std::string bytes;
    for (int shift = 56; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
    return bytes;
}

void SetKey(MBlowfishStream& cipher, const std::string& key) {
    MMemoryStream source(key.data(), static_cast<int32_t>(key.size()));
    cipher.SetKey(source);
}

/// The cipher takes its key in a circle, so seven times a key of 8 bytes gives the schedule of that key.
void SetShortKey(MBlowfishStream& cipher, uint64_t key) {
    std::string bytes;
    for (int i = 0; i < 7; ++i) bytes += EightBytes(key);
    SetKey(cipher, bytes);
}

std::string Encipher(MBlowfishStream& cipher, const std::string& plain, size_t piece = 1 << 20) {
    MMemoryStream target;
    cipher.Open(&target, true);
    for (size_t i = 0; i < plain.size(); i += piece)
        cipher.Write(plain.data() + i, static_cast<int32_t>(std::min(piece, plain.size() - i)));
    cipher.FinishBlock();
    return MBytesOf(target);
}

std::string ReadPieces(MStream& stream, size_t size, size_t piece) {
    std::string bytes(size, '?');
    size_t total = 0;
    while (total < size) {
        const auto wanted = static_cast<int32_t>(std::min(piece, size - total));
        const int32_t count = stream.Read(bytes.data() + total, wanted);
        total += static_cast<size_t>(count);
        if (count < wanted) break;
    }
    bytes.resize(total);
    return bytes;
}

/// Asks for more than there is.
std::string Decipher(MBlowfishStream& cipher, const std::string& enciphered, size_t piece = 1 << 20) {
    MMemoryStream source(enciphered.data(), static_cast<int32_t>(enciphered.size()));
    cipher.Open(&source, false);
    return ReadPieces(cipher, enciphered.size() + 100, piece);
}

std::string MakeData(size_t size) {
    std::string data(size, 0);
    uint32_t state = 7;
    for (char& byte : data) byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
    return data;
}

std::string Combine(std::string bytes, const std::string& other) {
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(bytes[i] ^ other[i]);
    return bytes;
}

TEST(Blowfish, GivesThePublishedBlocks) {
    // The set of test vectors that goes with the algorithm's publication.
    constexpr struct {
        uint64_t key, plain, enciphered;
    } Vectors[] = {
        {0x0000000000000000, 0x0000000000000000, 0x4EF997456198DD78},
        {0xFFFFFFFFFFFFFFFF, 0xFFFFFFFFFFFFFFFF, 0x51866FD5B85ECB8A},
        {0x3000000000000000, 0x1000000000000001, 0x7D856F9A613063F2},
        {0x1111111111111111, 0x1111111111111111, 0x2466DD878B963C9D},
        {0x0123456789ABCDEF, 0x1111111111111111, 0x61F9C3802281B096},
        {0x1111111111111111, 0x0123456789ABCDEF, 0x7D0CC630AFDA1EC7},
        {0xFEDCBA9876543210, 0x0123456789ABCDEF, 0x0ACEAB0FC6A0A28D},
        {0x7CA110454A1A6E57, 0x01A1D6D039776742, 0x59C68245EB05282B},
        {0x0131D9619DC1376E, 0x5CD54CA83DEF57DA, 0xB1B8CC0B250F09A0},
        {0x07A1133E4A0B2686, 0x0248D43806F67172, 0x1730E5778BEA1DA4},
        {0x3849674C2602319E, 0x51454B582DDF440A, 0xA25E7856CF2651EB},
        {0x0123456789ABCDEF, 0x0000000000000000, 0x245946885754369A},
        {0xFEDCBA9876543210, 0xFFFFFFFFFFFFFFFF, 0x6B5C5A9C5D9E0A5A},
    };
    MBlowfishStream cipher;
    for (const auto& [key, plain, enciphered] : Vectors) {
        SetShortKey(cipher, key);
        EXPECT_EQ(Encipher(cipher, EightBytes(plain)), EightBytes(enciphered)) << std::hex << key;
        EXPECT_EQ(Decipher(cipher, EightBytes(enciphered)), EightBytes(plain)) << std::hex << key;
    }
}

TEST(Blowfish, ChainsBlocksAndMasksTheShortLastOneWithThePlainBlockBeforeIt) {
    const std::string plain = MakeData(20);
    MBlowfishStream cipher;
    cipher.SetKeyText("key");
    const std::string enciphered = Encipher(cipher, plain);
    const std::string first = Encipher(cipher, plain.substr(0, 8));
    const std::string second = Encipher(cipher, Combine(plain.substr(8, 8), first));
    EXPECT_EQ(enciphered, first + second + Combine(plain.substr(16), plain.substr(8, 8)));
    EXPECT_EQ(Decipher(cipher, enciphered), plain);

    EXPECT_EQ(Encipher(cipher, "12345"), "12345");
    EXPECT_EQ(Decipher(cipher, "12345"), "12345");
    EXPECT_EQ(Encipher(cipher, ""), "");
    EXPECT_EQ(Decipher(cipher, ""), "");
}

TEST(Blowfish, PiecesOfAnySizeGiveTheSame) {
    MBlowfishStream cipher;
    cipher.GenerateKeys();
    // Around the sizes of a block, of blocks that are deciphered side by side and of what is passed at once.
    for (const size_t size : {1u, 8u, 9u, 31u, 32u, 39u, 8191u, 8192u, 8193u, 20001u}) {
        const std::string plain = MakeData(size);
        const std::string enciphered = Encipher(cipher, plain);
        EXPECT_EQ(enciphered.size(), size);
        for (const size_t piece : {1u, 3u, 8u, 13u, 8200u}) {
            EXPECT_TRUE(Encipher(cipher, plain, piece) == enciphered) << size << " by " << piece;
            EXPECT_TRUE(Decipher(cipher, enciphered, piece) == plain) << size << " by " << piece;
        }
        MMemoryStream source(enciphered.data(), static_cast<int32_t>(size));
        MTricklingStream slow(&source);
        cipher.Open(&slow, false);
        EXPECT_TRUE(ReadPieces(cipher, size, 777) == plain) << size << " from a slow source";
        EXPECT_TRUE(cipher.IsEnd());
    }
}

/// The CBC modification behind a class that the cipher does not know, so that it goes block by block.
class HiddenChaining : public MBufferingStream::BlockModificationProcessor {
public:
    void Init(int32_t input, int32_t output) override { chaining.Init(input, output); }
    bool BeforeEncode(uint8_t* block, int32_t& size) override { return chaining.BeforeEncode(block, size); }
    int32_t AfterEncode(uint8_t* block) override { return chaining.AfterEncode(block); }
    bool BeforeDecode(uint8_t* block, int32_t& size) override { return chaining.BeforeDecode(block, size); }
    int32_t AfterDecode(uint8_t* block) override { return chaining.AfterDecode(block); }

private:
    MBufferingStream::CBCBlockModification chaining;
};

TEST(Blowfish, ManyBlocksAtOnceAreWhatTheModificationGivesBlockByBlock) {
    MBlowfishStream quick, slow;
    quick.SetKeyText("another key");
    slow.SetKeyText("another key");
    slow.SetModification(new HiddenChaining);
    const std::string plain = MakeData(20003);
    const std::string enciphered = Encipher(quick, plain, 1003);
    EXPECT_TRUE(Encipher(slow, plain, 1003) == enciphered);
    EXPECT_TRUE(Decipher(slow, enciphered, 1003) == plain);
    EXPECT_TRUE(Decipher(quick, enciphered, 1003) == plain);
}

TEST(Blowfish, WithoutChainingTheLastBlockIsFilledWithZeros) {
    MBlowfishStream cipher;
    cipher.SetKeyText("key");
    cipher.SetModification(nullptr);
    const std::string enciphered = Encipher(cipher, "samesamesamesameend");
    EXPECT_EQ(enciphered.size(), 24u);
    EXPECT_EQ(enciphered.substr(0, 8), enciphered.substr(8, 8));
    EXPECT_EQ(Decipher(cipher, enciphered), std::string("samesamesamesameend\0\0\0\0\0", 24));
}

TEST(Blowfish, KeysTravelThroughStreamsAndTexts) {
    MBlowfishStream first, second;
    first.GenerateKeys();
    MMemoryStream key;
    first.GetKey(key);
    EXPECT_EQ(key.GetSize(), MBlowfishStream::KeySize);
    const std::string plain = MakeData(64);
    EXPECT_NE(Encipher(second, plain), Encipher(first, plain));
    key.Rewind();
    second.SetKey(key);
    EXPECT_EQ(Encipher(second, plain), Encipher(first, plain));

    EXPECT_EQ(FailureOf([&] { SetKey(second, "too short"); }),
              "100: Could not read required data from stream.");
    EXPECT_EQ(Encipher(second, plain), Encipher(first, plain));

    second.GenerateKeys();
    EXPECT_NE(Encipher(second, plain), Encipher(first, plain));
}

TEST(Blowfish, AKeyTextIsFilledWithZerosAndCutAt56Characters) {
    const std::string plain = MakeData(8);
    MBlowfishStream byText, byBytes;
    byText.SetKeyText("key");
    SetKey(byBytes, "key" + std::string(53, 0));
    EXPECT_EQ(Encipher(byText, plain), Encipher(byBytes, plain));

    const std::string longKey(60, 'k');
    byText.SetKeyText(MString::Copy(longKey.c_str()));
    SetKey(byBytes, longKey.substr(0, 56));
    EXPECT_EQ(Encipher(byText, plain), Encipher(byBytes, plain));

    byText.SetKeyText(MString::Copy(u"\u0141\u00E9"));
    SetKey(byBytes, "\x41\xE9" + std::string(54, 0));
    EXPECT_EQ(Encipher(byText, plain), Encipher(byBytes, plain));
    EXPECT_EQ(FailureOf([&] { byText.SetKeyLength(128); }),
              "1: Service \"set crypto key length\" is not implemented.");
}

}  // namespace
