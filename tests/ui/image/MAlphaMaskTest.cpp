#include "ui/image/MAlphaMask.h"
#include "streams/basic/MDispatchStream.h"
#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>
#include <string>

using namespace std::string_literals;

namespace {

const std::string Stored = "MASK\3\0\0\0\2\0\0\0\0\0\0\0\0\0\0\0\1\2\3\xFD\xFE\xFF"s;

std::string LoadFailureOf(const std::string& bytes, MAlphaMask& mask) {
    MMemoryStream stream(bytes.data(), static_cast<int32_t>(bytes.size()));
    return FailureOf([&] { mask.Load(stream); });
}

std::string WithWord(size_t index, uint32_t word) {
    std::string bytes = Stored;
    for (size_t i = 0; i < 4; ++i) bytes[index * 4 + i] = static_cast<char>(word >> 8 * i & 0xFF);
    return bytes;
}

}  // namespace

TEST(MAlphaMaskTest, StoredFormIsReadAndWritten) {
    MAlphaMask mask;
    ASSERT_EQ(LoadFailureOf(Stored, mask), "none");
    EXPECT_EQ(mask.GetWidth(), 3);
    EXPECT_EQ(mask.GetHeight(), 2);
    EXPECT_EQ(mask.GetRow(1)[0], 0xFD);

    MMemoryStream saved;
    mask.Save(saved);
    EXPECT_EQ(MBytesOf(saved), Stored);

    // Nobody asks for the reserved words.
    ASSERT_EQ(LoadFailureOf(WithWord(3, 77), mask), "none");
    EXPECT_EQ(mask.GetRow(1)[2], 0xFF);

    MMemoryStream savedEmpty;
    MAlphaMask().Save(savedEmpty);
    EXPECT_EQ(LoadFailureOf(MBytesOf(savedEmpty), mask), "none");
    EXPECT_TRUE(mask.IsEmpty());
}

TEST(MAlphaMaskTest, WrongFirstWordIsRefusedWithoutReadingOn) {
    const std::string bytes = WithWord(0, 0x4B53414E);
    MMemoryStream stream(bytes.data(), static_cast<int32_t>(bytes.size()));
    MAlphaMask mask(2, 2);
    EXPECT_EQ(FailureOf([&] { mask.Load(stream); }), "0: Alphamask stream content is invalid.");
    EXPECT_EQ(stream.GetPosition(), 4);
    EXPECT_TRUE(mask.IsEmpty());
}

TEST(MAlphaMaskTest, ImpossibleSizesAreRefused) {
    for (const auto& [index, word] :
         {std::pair<size_t, uint32_t>{1, 0xFFFFFFFF}, {2, 0x80000000}, {1, 0x7FFFFFFF}, {2, 1 << 28}}) {
        MAlphaMask mask(2, 2);
        EXPECT_EQ(LoadFailureOf(WithWord(index, word), mask), "0: Alphamask stream content is invalid.");
        EXPECT_TRUE(mask.IsEmpty());
    }
}

TEST(MAlphaMaskTest, CutFilesLeaveTheMaskEmpty) {
    for (size_t length = 0; length < Stored.size(); ++length) {
        MAlphaMask mask(2, 2);
        EXPECT_EQ(LoadFailureOf(Stored.substr(0, length), mask),
                  "100: Could not read required data from stream.")
            << length;
        EXPECT_TRUE(mask.IsEmpty());
    }
    // A claim of much more than there is costs no more than the claim's address space.
    MAlphaMask mask;
    EXPECT_EQ(LoadFailureOf(WithWord(1, 1 << 27), mask), "100: Could not read required data from stream.");
}

TEST(MAlphaMaskTest, CopiesDoNotChangeTogether) {
    MAlphaMask first(4, 3);
    const MAlphaMask second = first;
    first.EditRow(2)[3] = 9;
    EXPECT_EQ(second.GetRow(2)[3], 0);
    EXPECT_EQ(first.GetBytes()[11], 9);

    EXPECT_EQ(FailureOf([&] { first.Create(1 << 16, 1 << 15); }), "0: Out of memory.");
    EXPECT_TRUE(first.IsEmpty());
    first.Create(5, 0);
    EXPECT_EQ(first.GetWidth(), 0);
}
