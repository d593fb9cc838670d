#include "ui/image/MAlphaMask.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

using namespace std::string_literals;

namespace {

const std::string Stored = "MASK\3\0\0\0\2\0\0\0\0\0\0\0\0\0\0\0\1\2\3\xFD\xFE\xFF"s;

/// How loading fails into a mask that held another one, which must be gone then.
std::string LoadFailureOf(const std::string& bytes) {
    MMemoryStream stream = MStreamOf(bytes);
    MAlphaMask mask(2, 2);
    const std::string failure = FailureOf([&] { mask.Load(stream); });
    EXPECT_TRUE(mask.IsEmpty());
    return failure;
}

std::string WithWord(size_t index, uint32_t word) {
    return Stored.substr(0, index * 4) + MWordOf(word) + Stored.substr(index * 4 + 4);
}

}  // namespace

TEST(MAlphaMaskTest, StoredFormIsReadAndWritten) {
    MAlphaMask mask;
    // Nobody asks for the reserved words.
    for (const std::string& bytes : {Stored, WithWord(3, 77)}) {
        MMemoryStream stream = MStreamOf(bytes), saved;
        mask.Load(stream);
        mask.Save(saved);
        EXPECT_EQ(MBytesOf(saved), Stored);
    }
    EXPECT_EQ(mask.GetRow(1)[0], 0xFD);
    MMemoryStream savedEmpty;
    MAlphaMask().Save(savedEmpty);
    EXPECT_EQ(LoadFailureOf(MBytesOf(savedEmpty)), "none");
}

TEST(MAlphaMaskTest, ImpossibleAndCutContentsLeaveTheMaskEmpty) {
    // A wrong first word is refused without reading on.
    const std::string wrong = WithWord(0, 0x4B53414E);
    MMemoryStream stream = MStreamOf(wrong);
    MAlphaMask mask;
    EXPECT_EQ(FailureOf([&] { mask.Load(stream); }), "0: Alphamask stream content is invalid.");
    EXPECT_EQ(stream.GetPosition(), 4);
    for (const auto& [index, word] :
         {std::pair<size_t, uint32_t>{1, 0xFFFFFFFF}, {2, 0x80000000}, {1, 0x7FFFFFFF}, {2, 1 << 28}})
        EXPECT_EQ(LoadFailureOf(WithWord(index, word)), "0: Alphamask stream content is invalid.");
    const std::string Cut = "100: Could not read required data from stream.";
    for (size_t length = 0; length < Stored.size(); ++length)
        EXPECT_EQ(LoadFailureOf(Stored.substr(0, length)), Cut) << length;
    // A claim of much more than there is costs no more than the claim's address space.
    EXPECT_EQ(LoadFailureOf(WithWord(1, 1 << 27)), Cut);
    EXPECT_EQ(FailureOf([&] { mask.Create(1 << 16, 1 << 15); }), "0: Out of memory.");
}
