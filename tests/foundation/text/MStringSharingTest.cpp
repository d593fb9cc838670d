#include "foundation/text/MString.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

TEST(MStringSharingTest, NullGivesTheEmptyLiteral) {
    EXPECT_TRUE(MString(nullptr).IsLiteral());
    EXPECT_TRUE(MString::Copy(static_cast<const char*>(nullptr)).IsLiteral());
    EXPECT_TRUE(MString::Copy(static_cast<const char16_t*>(nullptr)).IsEmpty());
}

TEST(MStringSharingTest, ChangingACopyOfALiteralLeavesTheOtherOne) {
    const MString original("setup");
    MString copy = original;
    EXPECT_EQ(copy.GetLiteral(), original.GetLiteral());
    copy.Append("!");
    EXPECT_EQ(Text(copy), "setup!");
    EXPECT_EQ(Text(original), "setup");
    EXPECT_FALSE(copy.IsLiteral());
}

TEST(MStringSharingTest, CopiesShareOneBlockUntilOneChanges) {
    MString first = Heap("payload");
    const MString second = first;
    EXPECT_EQ(first.GetUnits(), second.GetUnits());
    EXPECT_EQ(first.Substring(0, 99).GetUnits(), first.GetUnits());
    first.SetChar(0, 'P');
    EXPECT_EQ(Text(first), "Payload");
    EXPECT_EQ(Text(second), "payload");
}

TEST(MStringSharingTest, ReserveTruncatesSharedTextButNotPrivateText) {
    MString shared = Heap("abcdef");
    const MString other = shared;
    shared.Reserve(4);
    EXPECT_EQ(Text(shared), "abc");
    EXPECT_EQ(Text(other), "abcdef");
    MString alone = Heap("abcdef");
    const char16_t* block = alone.GetUnits();
    alone.Reserve(4);
    EXPECT_EQ(Text(alone), "abcdef");
    EXPECT_EQ(alone.GetUnits(), block);
    MString literal("abc");
    literal.Reserve(0);
    EXPECT_TRUE(literal.IsEmpty());
}

TEST(MStringSharingTest, AbsurdLengthsAreRefused) {
    for (const int32_t length : {0x3FFFFFF1, 0x7FFFFFFE}) {
        MString text = Heap("x");
        EXPECT_EQ(FailureOf([&] { text.Reserve(length); }), "0: Out of memory.") << length;
        EXPECT_EQ(Text(text), "x");
    }
}

TEST(MStringSharingTest, AStringMayBePutIntoItself) {
    MString text = Heap("ab");
    text.Append(text);
    text.Insert(1, text);
    EXPECT_EQ(Text(text), "aababbab");
    text.ReplaceRange(0, 6, text);
    EXPECT_EQ(Text(text), "aababbabab");
    MString& self = text;
    text = self;
    EXPECT_EQ(Text(text), "aababbabab");
}

TEST(MStringSharingTest, NarrowBytesWidenBySignExtension) {
    const MString text("\xE9");
    EXPECT_EQ(static_cast<char16_t>(text[0]), 0xFFE9);
    MString heap = text;
    heap.Reserve(2);
    EXPECT_EQ(heap.GetUnits()[0], 0xFFE9);
    EXPECT_EQ(text.ToWide().Get()[0], 0xFFE9);
    EXPECT_EQ(MBytesOf(heap.ToNarrow(false)), "\xE9");
}

TEST(MStringSharingTest, ConversionsAttachWhatTheyCan) {
    const MString literal("abc");
    EXPECT_EQ(literal.ToNarrow().Get(), literal.GetLiteral());
    EXPECT_EQ(literal.ToNarrow().GetSize(), 4);
    EXPECT_EQ(literal.ToUTF8Attached().Get(), literal.GetLiteral());
    const MString heap = Wide(u"\u010De");
    EXPECT_EQ(heap.ToWide().Get(), heap.GetUnits());
    EXPECT_EQ(MBytesOf(heap.ToNarrow(false)), "ce");
    EXPECT_EQ(MBytesOf(heap.ToUTF8Attached()), "\xC4\x8D"
                                               "e");
}

TEST(MStringSharingTest, BuffersGiveTextUpToTheirFirstZero) {
    MCHARBuffer bytes;
    bytes.Attach("ab\0cd", 5);
    EXPECT_EQ(Text(MString(bytes)), "ab");
    bytes.Attach("abcd", 3);
    EXPECT_EQ(Text(MString(bytes)), "abc");
    EXPECT_TRUE(MString(MWCHARBuffer()).IsEmpty());
}

}  // namespace
