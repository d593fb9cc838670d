#include "streams/hashes/MMD5Stream.h"
#include "streams/hashes/MMD5Text.h"
#include "streams/hashes/MRIPEMDStream.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <algorithm>

namespace {

template <class Hash>
std::string Digest(const std::string& data, size_t piece = SIZE_MAX) {
    Hash hash;
    hash.Write("of the run before", 17);
    hash.Finish();
    hash.Reset();
    for (size_t i = 0; i < data.size(); i += std::min(piece, data.size()))
        hash.Write(data.data() + i, static_cast<int32_t>(std::min(piece, data.size() - i)));
    hash.Finish();
    return Text(hash.GetDigestText());
}

}  // namespace

TEST(MHashStream, GivesThePublishedDigests) {
    const std::string letters = "abcdefghijklmnopqrstuvwxyz";
    const std::string lettersAndDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    // RFC 1321, appendix A.5, and RIPEMD's own test values.
    const struct {
        std::string text;
        const char* md5;
        const char* ripemd;
    } cases[] = {
        {"", "D41D8CD98F00B204E9800998ECF8427E", "9C1185A5C5E9FC54612808977EE8F548B2258D31"},
        {"abc", "900150983CD24FB0D6963F7D28E17F72", "8EB208F7E05D987A9B044A8E98C6B087F15A0BFC"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq", "8215EF0796A20BCAAAE116D3876C664A",
         "12A053384A9C0C88E405A06C27DCF49ADA62EB2B"},
        {letters, "C3FCD3D76192E4007DFB496CCA67E13B", "F71C27109C692C1B56BBDCEB5B9D2865B3708DBC"},
        {lettersAndDigits, "D174AB98D277D9F5A5611C2C9F419D9F", "B0E20B6E3116640286ED3A87A5713079B21F5189"},
    };
    for (const auto& [text, md5, ripemd] : cases) {
        EXPECT_EQ(Digest<MMD5Stream>(text), md5);
        EXPECT_EQ(Digest<MRIPEMDStream>(text), ripemd);
    }
}

TEST(MHashStream, PiecesAndTheWholeGiveTheSame) {
    // Lengths around a block and around the place of the length in its padding.
    for (const size_t length : {54u, 55u, 56u, 57u, 63u, 64u, 65u, 119u, 120u, 1000u}) {
        const std::string data = MTestNoise(length);
        for (const size_t piece : {1u, 3u, 63u, 64u, 127u}) {
            EXPECT_EQ(Digest<MMD5Stream>(data, piece), Digest<MMD5Stream>(data)) << length << " by " << piece;
            EXPECT_EQ(Digest<MRIPEMDStream>(data, piece), Digest<MRIPEMDStream>(data))
                << length << " by " << piece;
        }
    }
}

TEST(MHashStream, AFileAndTheRestOfAStreamAreReadToTheirEndWithProgress) {
    const MScratch scratch;
    const std::string bytes = MTestNoise((1 << 21) + 5);
    EXPECT_EQ(Text(MMD5OfFile(scratch.WriteFile("a", bytes))), Digest<MMD5Stream>(bytes));
    MMemoryStream source = MStreamOf(bytes);
    (void)source.ReadInt8();
    std::vector<int64_t> progress;
    EXPECT_EQ(Text(MMD5OfStream(source, [&](int64_t done) { progress.push_back(done); })),
              Digest<MMD5Stream>(bytes.substr(1)));
    EXPECT_THAT(progress, testing::ElementsAre(1 << 20, 1 << 21, (1 << 21) + 4));
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
