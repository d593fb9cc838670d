#include "streams/basic/MHexaStream.h"
#include "streams/basic/MMemoryStream.h"
#include "streams/hashes/MMD5Stream.h"
#include "streams/hashes/MRIPEMDStream.h"
#include "tests/support/MTestText.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

template <class Hash>
std::string Digest(const std::string& data) {
    Hash hash;
    hash.Write(data.data(), static_cast<int32_t>(data.size()));
    hash.Finish();
    return Text(hash.GetDigestText());
}

const std::string Letters = "abcdefghijklmnopqrstuvwxyz";
const std::string LettersAndDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

std::string EightTimes(const std::string& text) {
    std::string result;
    for (int i = 0; i < 8; ++i) result += text;
    return result;
}

TEST(MHashStream, MD5GivesThePublishedDigests) {
    // RFC 1321, appendix A.5.
    EXPECT_EQ(Digest<MMD5Stream>(""), "D41D8CD98F00B204E9800998ECF8427E");
    EXPECT_EQ(Digest<MMD5Stream>("a"), "0CC175B9C0F1B6A831C399E269772661");
    EXPECT_EQ(Digest<MMD5Stream>("abc"), "900150983CD24FB0D6963F7D28E17F72");
    EXPECT_EQ(Digest<MMD5Stream>("message digest"), "F96B697D7CB7938D525A2F31AAF161D0");
    EXPECT_EQ(Digest<MMD5Stream>(Letters), "C3FCD3D76192E4007DFB496CCA67E13B");
    EXPECT_EQ(Digest<MMD5Stream>(LettersAndDigits), "D174AB98D277D9F5A5611C2C9F419D9F");
    EXPECT_EQ(Digest<MMD5Stream>(EightTimes("1234567890")), "57EDF4A22BE3C955AC49DA2E2107B67A");
}

TEST(MHashStream, RIPEMDGivesThePublishedDigests) {
    // The algorithm's own test values.
    EXPECT_EQ(Digest<MRIPEMDStream>(""), "9C1185A5C5E9FC54612808977EE8F548B2258D31");
    EXPECT_EQ(Digest<MRIPEMDStream>("a"), "0BDC9D2D256B3EE9DAAE347BE6F4DC835A467FFE");
    EXPECT_EQ(Digest<MRIPEMDStream>("abc"), "8EB208F7E05D987A9B044A8E98C6B087F15A0BFC");
    EXPECT_EQ(Digest<MRIPEMDStream>("message digest"), "5D0689EF49D2FAE572B881B123A85FFA21595F36");
    EXPECT_EQ(Digest<MRIPEMDStream>(Letters), "F71C27109C692C1B56BBDCEB5B9D2865B3708DBC");
    EXPECT_EQ(Digest<MRIPEMDStream>("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "12A053384A9C0C88E405A06C27DCF49ADA62EB2B");
    EXPECT_EQ(Digest<MRIPEMDStream>(LettersAndDigits), "B0E20B6E3116640286ED3A87A5713079B21F5189");
    EXPECT_EQ(Digest<MRIPEMDStream>(EightTimes("1234567890")), "9B752E45573D4B39F4DBD3323CAB82BF63326BFB");
    EXPECT_EQ(Digest<MRIPEMDStream>(std::string(1000000, 'a')), "52783243C1697BDBE16D37F97F68F08325DC1528");
}

template <class Hash>
void ExpectPiecesToGiveTheSame() {
    // Lengths around a block and around the place of the length in its padding.
    for (const size_t length : {54u, 55u, 56u, 57u, 63u, 64u, 65u, 119u, 120u, 128u, 1000u}) {
        std::string data(length, 0);
        for (size_t i = 0; i < length; ++i) data[i] = static_cast<char>(i * 31);
        const std::string whole = Digest<Hash>(data);
        Hash hash;
        for (const size_t piece : {1u, 3u, 63u, 64u, 65u, 127u}) {
            hash.Reset();
            for (size_t i = 0; i < length; i += piece)
                hash.Write(data.data() + i, static_cast<int32_t>(std::min(piece, length - i)));
            hash.Finish();
            EXPECT_EQ(Text(hash.GetDigestText()), whole) << length << " in pieces of " << piece;
        }
    }
}

TEST(MHashStream, PiecesAndTheWholeGiveTheSameDigestAlsoAfterAReset) {
    ExpectPiecesToGiveTheSame<MMD5Stream>();
    ExpectPiecesToGiveTheSame<MRIPEMDStream>();
}

TEST(MHashStream, TheDigestIsWrittenInTheOrderOfItsText) {
    MMD5Stream hash;
    hash.Finish();
    MMemoryStream text;
    MHexaStream hexa(&text);
    hash.WriteDigest(hexa);
    EXPECT_EQ(std::string(text.GetBuffer().Get(), static_cast<size_t>(text.GetSize())),
              "D41D8CD98F00B204E9800998ECF8427E");
    EXPECT_EQ(hash.GetDigestSize(), 16);
    EXPECT_EQ(MRIPEMDStream().GetDigestSize(), 20);
    char byte;
    EXPECT_EQ(FailureOf([&] { hash.Read(&byte, 1); }), "1: Service \"read from stream\" is not implemented.");
}

TEST(MHashStream, AClassThatSetsNoBlockSizeCannotBeWritten) {
    struct Bare : MHashStream {
        void Finish() override {}
        int32_t GetDigestSize() const override { return 0; }
        std::span<const uint8_t> GetDigest() const override { return {}; }
        void ProcessBlock(const uint8_t*) override {}
    } bare;
    EXPECT_EQ(FailureOf([&] { bare.Write("x", 1); }),
              "0: Cryptographic hash stream has not been initialized.");
}

TEST(MHashStreamLarge, TheCountOfBitsGoesBeyond32) {
    const std::string piece(1 << 20, 'x');
    MMD5Stream md5;
    MRIPEMDStream ripemd;
    for (int i = 0; i < 513; ++i) {
        md5.Write(piece.data(), 1 << 20);
        ripemd.Write(piece.data(), 1 << 20);
    }
    md5.Finish();
    ripemd.Finish();
    EXPECT_EQ(Text(md5.GetDigestText()), "7B73C90BAF10FA478814023B4F869C29");
    EXPECT_EQ(Text(ripemd.GetDigestText()), "6AD96D83D0ED43AF96561D46F79AE1D7F42407B8");
}

}  // namespace
