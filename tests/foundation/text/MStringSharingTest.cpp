#include "foundation/text/MString.h"

#include "tests/support/MTestBytes.h"
#include "tests/support/MTestText.h"

namespace {

TEST(MStringSharingTest, LiteralsAndBlocksAreSharedUntilOneCopyChanges) {
    const MString literal("setup");
    MString copy = literal;
    EXPECT_EQ(copy.GetLiteral(), literal.GetLiteral());
    copy.SetChar(0, 'S');
    EXPECT_EQ(Text(copy + literal), "Setupsetup");
    MString first = copy;
    EXPECT_EQ(first.GetUnits(), copy.GetUnits());
    EXPECT_EQ(first.Substring(0, 99).GetUnits(), copy.GetUnits());
    first.SetChar(0, 'P');
    EXPECT_EQ(Text(first + copy), "PetupSetup");
    EXPECT_TRUE(MString(nullptr).IsLiteral() && MString::Copy(static_cast<const char*>(nullptr)).IsLiteral());
    EXPECT_TRUE(MString::Copy(static_cast<const char16_t*>(nullptr)).IsEmpty());
}

TEST(MStringSharingTest, WhatIsAppendedOrPutInPlaceIsCopied) {
    char bytes[] = "lent";
    MString appended;
    appended += bytes;
    MString replaced("x");
    replaced.Replace("X", bytes);
    MString inserted;
    inserted.Insert(0, bytes);
    bytes[0] = 'b';
    EXPECT_EQ(Text(appended + replaced + inserted), "lentlentlent");
}

TEST(MStringSharingTest, ReserveTruncatesSharedTextButNotPrivateText) {
    MString shared = Heap("abcdef");
    const MString other = shared;
    shared.Reserve(4);
    EXPECT_EQ(Text(shared + other), "abcabcdef");
    MString alone = Heap("abcdef");
    const char16_t* block = alone.GetUnits();
    alone.Reserve(4);
    EXPECT_EQ(alone.GetUnits(), block);
    MString literal("abc");
    literal.Reserve(0);
    EXPECT_TRUE(literal.IsEmpty());
    for (const int32_t length : {0x3FFFFFF1, 0x7FFFFFFE})
        EXPECT_EQ(FailureOf([&] { alone.Reserve(length); }), "0: Out of memory.") << length;
    EXPECT_EQ(Text(alone), "abcdef");
}

TEST(MStringSharingTest, AStringMayBePutIntoItself) {
    MString text = Heap("ab");
    text.Append(text);
    text.Insert(1, text);
    EXPECT_EQ(Text(text), "aababbab");
    text.ReplaceRange(0, 6, text);
    text = static_cast<MString&>(text);
    EXPECT_EQ(Text(text), "aababbabab");
}

TEST(MStringSharingTest, ConversionsAttachWhatTheyCan) {
    const MString literal("abc");
    EXPECT_EQ(literal.ToNarrow().Get(), literal.GetLiteral());
    EXPECT_EQ(literal.ToUTF8Attached().Get(), literal.GetLiteral());
    const MString heap = Wide(u"\u010De");
    EXPECT_EQ(heap.ToWide().Get(), heap.GetUnits());
    EXPECT_EQ(MBytesOf(heap.ToNarrow(false)), "ce");
    EXPECT_EQ(MBytesOf(heap.ToUTF8Attached()), "\xC4\x8D"
                                               "e");
    // A byte widens by sign extension in every form.
    MString widened("\xE9");
    EXPECT_EQ(widened.ToWide().Get()[0], 0xFFE9);
    widened.Reserve(2);
    EXPECT_EQ(widened.GetUnits()[0], 0xFFE9);
    EXPECT_EQ(MBytesOf(widened.ToNarrow(false)), "\xE9");
    MCHARBuffer bytes;
    bytes.Attach("ab\0cd", 5);
    EXPECT_EQ(Text(MString(bytes)), "ab");
    bytes.Attach("abcd", 3);
    EXPECT_EQ(Text(MString(bytes)), "abc");
    EXPECT_TRUE(MString(MWCHARBuffer()).IsEmpty());
}

}  // namespace
