#include "streams/basic/MMemoryStream.h"
#include "tests/support/MTestText.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

TEST(MMemoryStream, GrowsExactlyAtFirstAndThenByPowersOfTwo) {
    MMemoryStream stream;
    stream.WriteFill(5);
    EXPECT_EQ(stream.GetBuffer().GetSize(), 5);
    stream.WriteFill(1);
    EXPECT_EQ(stream.GetBuffer().GetSize(), 8);
    stream.WriteFill(3);
    EXPECT_EQ(stream.GetBuffer().GetSize(), 16);
    EXPECT_EQ(stream.GetSize(), 9);
    stream.Trim();
    EXPECT_EQ(stream.GetBuffer().GetSize(), 9);
    stream.Reset();
    stream.Trim();
    EXPECT_EQ(stream.GetPointer(), nullptr);
}

TEST(MMemoryStream, WritingLeavesWhatItWasGivenAlone) {
    char memory[] = "abcd";
    MMemoryStream attached(memory, 4);
    attached.Seek(1, MSeekOrigin::Begin);
    attached.Write("X", 1);
    EXPECT_STREQ(memory, "abcd");
    EXPECT_EQ(std::string(attached.GetBuffer().Get(), 4), "aXcd");

    MBuffer buffer(2);
    std::memcpy(buffer.EditBlock(), "ab", 2);
    MMemoryStream sharing(buffer);
    EXPECT_EQ(sharing.GetPointer(), buffer.GetBlock());
    sharing.Write("Z", 1);
    EXPECT_EQ(std::memcmp(buffer.GetBlock(), "ab", 2), 0);
    EXPECT_EQ(*sharing.GetPointer(), 'b');
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
    EXPECT_EQ(FailureOf([&] { stream.Flush(); }), "1: Service \"flush stream\" is not implemented.");

    // The sum of position and size does not fit 32 bits; nothing of it is touched.
    MMemoryStream full(&byte, INT32_MAX);
    full.SeekToEnd();
    EXPECT_EQ(FailureOf([&] { full.Write(&byte, 2); }), "0: Out of memory.");
}

}  // namespace
