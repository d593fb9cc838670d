#include "ui/image/MAlphaMask.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

const std::string Stored = "MASK\3\0\0\0\2\0\0\0\0\0\0\0\0\0\0\0\1\2\3\xFD\xFE\xFF"s;

std::string LoadFailureOf(const std::string& bytes, MAlphaMask& mask) {
    MMemoryStream stream = MStreamOf(bytes);
    return FailureOf([&] { mask.Load(stream); });
}

std::string WithWord(size_t index, uint32_t word) {
    return Stored.substr(0, index * 4) + MWordOf(word) + Stored.substr(index * 4 + 4);
}

}  // namespace

TEST(MAlphaMaskTest, StoredFormIsReadAndWritten) {
    MAlphaMask mask;
    // Nobody asks for the reserved words.
    for (const std::string& bytes : {Stored, WithWord(3, 77)}) {
        ASSERT_EQ(LoadFailureOf(bytes, mask), "none");
        MMemoryStream saved;
        mask.Save(saved);
        EXPECT_EQ(MBytesOf(saved), Stored);
    }
    EXPECT_EQ(mask.GetRow(1)[0], 0xFD);
    MMemoryStream savedEmpty;
    MAlphaMask().Save(savedEmpty);
    EXPECT_EQ(LoadFailureOf(MBytesOf(savedEmpty), mask), "none");
    EXPECT_TRUE(mask.IsEmpty());
}

TEST(MAlphaMaskTest, ImpossibleAndCutContentsLeaveTheMaskEmpty) {
    // A wrong first word is refused without reading on.
    const std::string wrong = WithWord(0, 0x4B53414E);
    MMemoryStream stream = MStreamOf(wrong);
    MAlphaMask mask(2, 2);
    EXPECT_EQ(FailureOf([&] { mask.Load(stream); }), "0: Alphamask stream content is invalid.");
    EXPECT_EQ(stream.GetPosition(), 4);
    EXPECT_TRUE(mask.IsEmpty());

    for (const auto& [index, word] :
         {std::pair<size_t, uint32_t>{1, 0xFFFFFFFF}, {2, 0x80000000}, {1, 0x7FFFFFFF}, {2, 1 << 28}}) {
        mask.Create(2, 2);
        EXPECT_EQ(LoadFailureOf(WithWord(index, word), mask), "0: Alphamask stream content is invalid.");
        EXPECT_TRUE(mask.IsEmpty());
    }
    const std::string Cut = "100: Could not read required data from stream.";
    for (size_t length = 0; length < Stored.size(); ++length) {
        mask.Create(2, 2);
        EXPECT_EQ(LoadFailureOf(Stored.substr(0, length), mask), Cut) << length;
        EXPECT_TRUE(mask.IsEmpty());
    }
    // A claim of much more than there is costs no more than the claim's address space.
    EXPECT_EQ(LoadFailureOf(WithWord(1, 1 << 27), mask), Cut);
    EXPECT_EQ(FailureOf([&] { mask.Create(1 << 16, 1 << 15); }), "0: Out of memory.");
}
