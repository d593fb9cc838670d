#include "foundation/base/MHashTable.h"
#include "foundation/text/MString.h"

#include "tests/support/MTestText.h"

namespace {

TEST(MStringFoldingTest, EqualityIgnoresCaseAndDiacritics) {
    EXPECT_EQ(Wide(u"CAF\u00C9 \u0141\u00F3d\u017A"), MString("cafe lodz"));
    EXPECT_FALSE(MString("cafe") == MString("cafes"));
    EXPECT_FALSE(MString() == MString("a"));
    EXPECT_FALSE(Wide(u"CAF\u00C9").IsExactly("CAFE"));
    // A byte above 127 in a literal is no Latin letter, so nothing folds it.
    EXPECT_FALSE(MString("\xE9") == MString("e"));
    EXPECT_EQ(Text(Wide(u"AZ[\u00C9").ToLower()), Text(Wide(u"az[\u00C9")));
}

TEST(MStringFoldingTest, TableHoldsLettersAndNothingElse) {
    const std::pair<char16_t, char16_t> cases[] = {
        {0xBF, 0xBF},     {0xC0, 'A'},    {0xC7, 'C'},    {0xD1, 'N'},      {0xD7, 0xD7},
        {0xDF, 0xDF},     {0xE6, 0xE6},   {0xF8, 'o'},    {0x131, 0x131},   {0x17D, 'Z'},
        {0x1E9, 'k'},     {0x1EF9, 'y'},  {0x1C5, 0x1C5}, {0x1F2, 0x1F2},   {0x212B, 'A'},
        {0x212A, 0x212A}, {0x3B1, 0x3B1}, {'a', 'a'},     {0x4E00, 0x4E00}, {0xFFFF, 0xFFFF}};
    for (const auto& [unit, folded] : cases) EXPECT_EQ(MChar(unit).FoldDiacritics() - folded, 0) << int{unit};
}

TEST(MStringFoldingTest, ComparesByTheFirstDifferingPair) {
    EXPECT_EQ(MString("abc").Compare(Heap("abd")), -1);
    EXPECT_LT(MString("ab").Compare("abc"), 0);
    EXPECT_NE(MString("a").Compare("A"), 0);
    EXPECT_EQ(MString("xxSETUPyy").CompareNoCase("setup", 5, 2), 0);
    EXPECT_NE(MString("xxSETUPyy").CompareNoCase("setup", 6, 2), 0);
    EXPECT_EQ(MString("abc").CompareNoCase("abd", 2), 0);
    const MString shared = Heap("same");
    EXPECT_NE(shared.CompareNoCase(MString(shared), MString::MaximumLength, 1), 0);
}

TEST(MStringFoldingTest, HashTablesSampleLongTextsAndGiveTheFirstOfEqualKeys) {
    EXPECT_EQ(MStringHash("AB"), ('a' ^ ('b' << 1)));
    EXPECT_EQ(MStringHash("\xE9"), 0xFFFFFFE9u);
    const char* const other = "aXXXeYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYY";
    EXPECT_EQ(MStringHash("abcdefghijklmnopqrstuvwxyz0123456789abcd"), MStringHash(other));
    EXPECT_NE(MStringHash("abcdfYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYYY"), MStringHash(other));
    MHashTable<MString, int> table;
    for (int i = 0; i < 100; ++i) table.Add(MString::Print("key %d", i), i);
    table.Add("KEY 7", 1000);
    EXPECT_EQ(table.GetCount(), 101);
    EXPECT_EQ(*table.Find("Key 7"), 7);
    EXPECT_EQ(table.Find("key 100"), nullptr);
}

TEST(MCharTest, UnitsBelongToClasses) {
    const std::pair<bool (MChar::*)() const, const char*> cases[] = {
        {&MChar::IsEndOfText, "0-0 "},
        {&MChar::IsBlank, "0-32 "},
        {&MChar::IsControl, "0-31 "},
        {&MChar::IsControlOtherThanTab, "0-8 10-31 "},
        {&MChar::IsNonTextControl, "1-8 11-31 "},
        {&MChar::IsNewline, "10-10 "},
        {&MChar::IsLetter, "65-90 97-122 "},
        {&MChar::IsAlphanumeric, "48-57 65-90 97-122 "},
        {&MChar::IsUpperLetterOrDigit, "48-57 65-90 "}};
    for (const auto& [isOfClass, expected] : cases) {
        std::string ranges;
        const auto is = [&, test = isOfClass](int32_t unit) {
            return (MChar(static_cast<char16_t>(unit)).*test)();
        };
        for (int32_t unit = 0; unit < 0x200; ++unit) {
            if (is(unit) && (unit == 0 || !is(unit - 1))) ranges += std::to_string(unit);
            if (is(unit) && !is(unit + 1)) ranges += "-" + std::to_string(unit) + " ";
        }
        EXPECT_EQ(ranges, expected);
    }
    EXPECT_EQ(MChar(u'f').ToHexDigit() + MChar(u'A').ToHexDigit(), 25);
    for (const char16_t unit : {u'g', u'/', u':', u'@', u'\xFF11'})
        EXPECT_EQ(FailureOf([&] { (void)MChar(unit).ToHexDigit(); }),
                  "0: Invalid character to be converted to a number.");
}

}  // namespace
