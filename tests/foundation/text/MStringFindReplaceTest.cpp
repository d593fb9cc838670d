#include "foundation/base/MList.h"
#include "foundation/text/MCharFilter.h"
#include "foundation/text/MString.h"

#include "tests/support/MTestText.h"

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
        EXPECT_EQ(text.FindChar('a', 3), 5);
        EXPECT_EQ(text.FindChar('a', 9), MString::NotFound);
        EXPECT_EQ(text.FindCharBackward('x'), 1);
        EXPECT_EQ(text.FindCharBackward('x', 0), 0);
        EXPECT_EQ(text.FindCharBackward('a', 4), MString::NotFound);
    }
}

TEST(MStringFindReplaceTest, ReplacesWithoutLookingAtWhatItInserted) {
    MString text("banana");
    EXPECT_EQ(text.Replace("A", "aa"), 3);
    EXPECT_EQ(text.Replace("x", "y"), 0);
    EXPECT_EQ(text.Replace("", "y"), 0);
    EXPECT_EQ(text.ReplaceChar('n', "nn"), 2);
    EXPECT_EQ(text.ReplaceChar('N', "y"), 0);
    EXPECT_EQ(Text(text), "baannaannaa");
    // Lists are worked through again until nothing changes.
    MList<MString> texts, replacements;
    for (const char* pattern : {"{B}", "{A}"}) texts.Add(pattern);
    for (const char* replacement : {"end", "{b}/x"}) replacements.Add(replacement);
    text = "{a} {A}";
    EXPECT_EQ(text.Replace(texts, replacements), 4);
    EXPECT_EQ(Text(text), "end/x end/x");
}

TEST(MStringFindReplaceTest, TrimsAndFiltersByCharacterClass) {
    MString text(" \t a\x01 b\r\nc \n");
    EXPECT_EQ(Text(text.Trimmed()), "a\x01 b\r\nc");
    EXPECT_TRUE(MString(" \n\t ").Trimmed().IsEmpty());
    text.TrimLeft();
    EXPECT_EQ(Text(text), "a\x01 b\r\nc \n");
    text.TrimRight();
    text.RemoveNonTextControls();
    EXPECT_EQ(Text(text), "a b\nc");
    MString oneLine = text;
    oneLine.RemoveNewlines();
    EXPECT_EQ(Text(oneLine), "a bc");
    text.ChangeBlanksToSpaces();
    EXPECT_EQ(Text(text), "a b c");
    text.RemoveBlanks();
    EXPECT_EQ(Text(text), "abc");
    const MList<MString> pieces = MString(",,a,,b,").Split(',');
    ASSERT_EQ(pieces.GetCount(), 2);
    EXPECT_EQ(Text(pieces[0] + "|" + pieces[1]), "a|b");
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

TEST(MCharFilterTest, EachFilterKeepsItsCharacters) {
    const MString text = Wide(u"Az09-. _,fFgG\u00e9\u0131+");
    struct Case {
        const MCharFilter::Interface& filter;
        const char* kept;
        uint8_t flags;
    };
    const Case cases[] = {{MCharFilter::AllFilter(), "Az09-. _,fFgG\u00e9\u0131+", 23},
                          {MCharFilter::LettersFilter(), "AzfFgG", 1},
                          {MCharFilter::AlphaStrictFilter(), "Az09fFgG", 3},
                          {MCharFilter::AlphaFilter(), "Az09-. fFgG", 7},
                          {MCharFilter::IntegerFilter(), "09-", 2},
                          {MCharFilter::IntegerHexaFilter(), "A09fF", 10},
                          {MCharFilter::FloatFilter(), "09-.", 6}};
    for (const Case& tested : cases) {
        MString kept = text;
        kept.KeepAccepted(tested.filter);
        EXPECT_EQ(Text(kept), tested.kept);
        EXPECT_EQ(tested.filter.GetFlags(), tested.flags) << tested.kept;
    }
}

}  // namespace
