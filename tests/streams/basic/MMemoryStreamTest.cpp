#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

TEST(MMemoryStream, GrowsExactlyAtFirstAndThenByPowersOfTwo) {
    MMemoryStream stream;
    for (const auto& [count, capacity] : {std::pair(5, 5), {1, 8}, {3, 16}}) {
        stream.WriteFill(count);
        EXPECT_EQ(stream.GetBuffer().GetSize(), capacity);
    }
    stream.Trim();
    EXPECT_EQ(stream.GetBuffer().GetSize(), 9);
    stream.Reset();
    stream.Trim();
    EXPECT_EQ(stream.GetPointer(), nullptr);
}

TEST(MMemoryStream, WritingLeavesWhatItWasGivenAlone) {
    const std::string memory = "abcd";
    MMemoryStream attached = MStreamOf(memory);
    MMemoryStream sharing(attached.GetBuffer());
    EXPECT_EQ(sharing.GetPointer(), memory.data());
    attached.Seek(1, MSeekOrigin::Begin);
    attached.Write("X", 1);
    EXPECT_EQ(memory, "abcd");
    EXPECT_EQ(MBytesOf(sharing), "abcd");
    EXPECT_EQ(MBytesOf(attached), "aXcd");
    EXPECT_EQ(*attached.GetPointer(), 'c');
}

TEST(MMemoryStream, SeekingIsClampedToTheData) {
    MMemoryStream stream("abcdef", 6);
    const struct {
        int64_t offset;
        MSeekOrigin origin;
        int64_t position;
    } cases[] = {
        {3, MSeekOrigin::Begin, 3},           {2, MSeekOrigin::Current, 5},     {-1, MSeekOrigin::End, 5},
        {99, MSeekOrigin::Begin, 6},          {-99, MSeekOrigin::Current, 0},   {1, MSeekOrigin::End, 6},
        {INT64_MAX, MSeekOrigin::Current, 6}, {INT64_MIN, MSeekOrigin::End, 0},
    };
    for (const auto& entry : cases) {
        stream.Seek(entry.offset, entry.origin);
        EXPECT_EQ(stream.GetPosition(), entry.position) << entry.offset;
    }
    EXPECT_EQ(FailureOf([&] { stream.Seek(0, static_cast<MSeekOrigin>(3)); }), "2: Invalid seek origin.");
}

TEST(MMemoryStream, SizesThatCannotBeAreRefused) {
    MMemoryStream stream;
    char byte = 0;
    EXPECT_EQ(FailureOf([&] { stream.Write(&byte, -1); }), "0: Trying to write a block of negative size.");
    EXPECT_EQ(FailureOf([&] { stream.Read(&byte, -1); }), "0: Trying to read a block of negative size.");
    // The sum of position and size does not fit 32 bits; nothing of it is touched.
    MMemoryStream full(&byte, INT32_MAX);
    full.SeekToEnd();
    EXPECT_EQ(FailureOf([&] { full.Write(&byte, 2); }), "0: Out of memory.");
}
