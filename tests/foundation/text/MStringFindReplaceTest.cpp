#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include "tests/support/MTestText.h"

#include <gtest/gtest.h>

namespace {

TEST(MStringFindReplaceTest, FindsTextIgnoringCaseInEveryForm) {
    for (const MString& text : {MString("xxABCabc"), Heap("xxABCabc")}) {
        for (const MString& pattern : {MString("abc"), Heap("AbC")}) {
            EXPECT_EQ(text.Find(pattern), 2);
            EXPECT_EQ(text.Find(pattern, 3), 5);
            EXPECT_EQ(text.Find(pattern, 6), MString::NotFound);
            EXPECT_EQ(text.Find(pattern, 100), MString::NotFound);
        }
        EXPECT_TRUE(text.StartsWith("XXa"));
        EXPECT_TRUE(text.EndsWith("CABC"));
        EXPECT_FALSE(text.EndsWith("xxxABCabc"));
    }
}

TEST(MStringFindReplaceTest, FindsCharactersFromBothEnds) {
    const MString path("a/b/c");
    EXPECT_EQ(path.FindChar('/'), 1);
    EXPECT_EQ(path.FindChar('/', 2), 3);
    EXPECT_EQ(path.FindChar('/', 9), MString::NotFound);
    EXPECT_EQ(path.FindCharBackward('/'), 3);
    EXPECT_EQ(path.FindCharBackward('/', 2), 1);
    EXPECT_EQ(path.FindCharBackward('/', 0), MString::NotFound);
}

TEST(MStringFindReplaceTest, ReplacesWithoutLookingAtWhatItInserted) {
    MString text("banana");
    EXPECT_EQ(text.Replace("A", "aa"), 3);
    EXPECT_EQ(Text(text), "baanaanaa");
    EXPECT_EQ(text.Replace("x", "y"), 0);
    EXPECT_EQ(text.Replace("", "y"), 0);
    EXPECT_EQ(text.ReplaceChar('n', "nn"), 2);
    EXPECT_EQ(Text(text), "baannaannaa");
}

TEST(MStringFindReplaceTest, ListReplacementRepeatsUntilNothingChanges) {
    MList<MString> texts;
    MList<MString> replacements;
    texts.Add("{B}");
    replacements.Add("end");
    texts.Add("{A}");
    replacements.Add("{b}/x");
    MString text("{a} {A}");
    EXPECT_EQ(text.Replace(texts, replacements), 4);
    EXPECT_EQ(Text(text), "end/x end/x");
}

TEST(MStringFindReplaceTest, RangesAreClamped) {
    MString text("abcdef");
    text.Remove(-1, 3);
    EXPECT_EQ(Text(text), "abcdef");
    text.Remove(4, 100);
    EXPECT_EQ(Text(text), "abcd");
    text.Insert(100, "!");
    text.Insert(-5, MChar('<'));
    EXPECT_EQ(Text(text), "<abcd!");
    EXPECT_EQ(Text(text.Substring(2, 100)), "bcd!");
    EXPECT_TRUE(text.Substring(-1, 3).IsEmpty());
    EXPECT_TRUE(text.Substring(6).IsEmpty());
    text.Cut(3);
    text.Cut(10);
    EXPECT_EQ(Text(text), "<ab");
}

TEST(MStringFindReplaceTest, TrimsAndFiltersByCharacterClass) {
    const char* const source = " \t a\x01 b\r\nc \n";
    EXPECT_EQ(Text(MString(source).Trimmed()), "a\x01 b\r\nc");
    EXPECT_TRUE(MString(" \n\t ").Trimmed().IsEmpty());
    MString text(source);
    text.TrimLeft();
    EXPECT_EQ(Text(text), "a\x01 b\r\nc \n");
    text.TrimRight();
    text.RemoveNonTextControls();
    EXPECT_EQ(Text(text), "a b\nc");
    text.ChangeBlanksToSpaces();
    EXPECT_EQ(Text(text), "a b c");
    text.RemoveBlanks();
    EXPECT_EQ(Text(text), "abc");
}

TEST(MStringFindReplaceTest, SplittingGivesNoEmptyPieces) {
    const MList<MString> pieces = MString(",,a,,b,").Split(',');
    ASSERT_EQ(pieces.GetCount(), 2);
    EXPECT_EQ(Text(pieces[0]), "a");
    EXPECT_EQ(Text(pieces[1]), "b");
    EXPECT_TRUE(MString(",,").Split(',').IsEmpty());
}

}  // namespace
