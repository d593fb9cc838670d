#include "tests/support/MTestText.h"
#include "ui/text/MLineBreaks.h"

TEST(LineBreaksTest, LinesBreakBesideIdeographsButNotAtMarks) {
    // A bar stands wherever a line may be broken.
    const char16_t* const texts[] = {
        u"a-b/c.d\x2014\x65\x301",
        u"\x97F3|\x697D",
        u"ab|\x97F3|\x697D|\xFF08\x304A|\x3093\xFF09|\x306F\x3001|\x4E16|12,5|\x5339\x3002",
        u"\x97F3\xFF01\xFF1F|(\x30C6|\x30B9|\x30C8)|\x30AD\x30E3|\x30E9\x30FC\"\x697D\"",
        u"\x300C\x97F3\x300D|\x300E\x697D\x300F",
        u"\x304B\x3099|\x304B\xA0\x304B\x2060\x304B",
        u"\xC74C\xC545\x200B|\xC774",
        u"\xD840\xDC0B|\xD83C\xDFB5",
    };
    for (const char16_t* text : texts) {
        const MString expected = Wide(text);
        MString found;
        char32_t last = 0;
        for (int32_t index = 0; index < expected.GetLength();) {
            const int32_t start = index;
            const char32_t character = MTakeCodePoint(expected, index);
            if (character == '|') continue;
            if (last && MMayBreakBetween(last, character)) found += "|";
            found += expected.Substring(start, index - start);
            last = character;
        }
        EXPECT_EQ(Text(found), Text(expected));
    }
}
