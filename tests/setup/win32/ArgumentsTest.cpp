#include "setup/win32/MArguments.h"
#include "tests/support/MTestText.h"

TEST(ArgumentsTest, QuotationMarksHoldEveryWordTogetherTheFirstOneToo) {
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"directory:x=\"C:\\My Folder\" silent", "directory:x=C:\\My Folder|silent|"},
        {L"component:\"VST plugins\"=off silent", "component:VST plugins=off|silent|"},
        {L"  \"a b\" c ", "a b|c|"},
        {L"md5 \"a\\\"b\" \"\"", "md5|a\"b||"},
    };
    for (const auto& [line, expected] : cases) {
        std::string words;
        for (const MString& word : MSplitArguments(line)) words += Text(word) + "|";
        EXPECT_EQ(words, expected);
    }
    EXPECT_EQ(MSplitArguments(L" ").GetCount(), 1);
}
