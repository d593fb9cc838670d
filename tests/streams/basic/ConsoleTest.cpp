#include "streams/basic/MConsole.h"

#include "foundation/text/MUnicode.h"
#include "tests/support/MScratch.h"
#include "tests/support/MTestText.h"

/// A name in an installer, or in a folder, can hold what clears a screen or makes a line look like another
/// one.
TEST(ConsoleTest, ShowsWhatWouldCommandATerminal) {
    const std::pair<MString, const char*> cases[] = {
        {Wide(u"a\nb\tc\\u001B \u00E4\u200F\xD83D\xDE00"), "a\nb\tc\\u001B \u00E4\u200F\U0001F600"},
        {Wide(u"\x1B[2J\r\b\x7F\x9B!"), "\\u001B[2J\\u000D\\u0008\\u007F\\u009B!"},
        {Wide(u"\x202Etxt.\x2066"), "\\u202Etxt.\\u2066"},
        {MDecodeUTF8Exact("\x9B\xC3\xA4\xFF"), "\\x9B\u00E4\\xFF"},
    };
    const MScratch scratch;
    for (const auto& [text, shown] : cases) {
        std::FILE* file = std::fopen(Text(scratch.Join("console")).c_str(), "wb");
        ASSERT_TRUE(file);
        EXPECT_TRUE(MWriteConsoleText(file, text));
        EXPECT_TRUE(MOverwriteConsoleLine(file, text));
        std::fclose(file);
        EXPECT_EQ(scratch.ReadFile("console"), shown + std::string("\r") + shown);
    }
}
