#include "ui/text/MLineBreaks.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace {

constexpr char32_t ZeroWidthSpace = 0x200B;

/// Both ends are included.
struct Range {
    char32_t first;
    char32_t last;
};

/// Accents and signs over and under letters: general, Cyrillic, Hebrew, Arabic, Thai, of symbols and of kana.
constexpr Range Combining[] = {
    {0x300, 0x36F},   {0x483, 0x489},   {0x591, 0x5BD},   {0x5BF, 0x5BF},  {0x5C1, 0x5C2}, {0x5C4, 0x5C5},
    {0x5C7, 0x5C7},   {0x610, 0x61A},   {0x64B, 0x65F},   {0x670, 0x670},  {0x6D6, 0x6DC}, {0x6DF, 0x6E4},
    {0x6E7, 0x6E8},   {0x6EA, 0x6ED},   {0xE31, 0xE31},   {0xE34, 0xE3A},  {0xE47, 0xE4E}, {0x1AB0, 0x1ACE},
    {0x1DC0, 0x1DFF}, {0x20D0, 0x20F0}, {0x3099, 0x309A}, {0xFE20, 0xFE2F}};

/// Ideographs, kana, bopomofo, Yi, their punctuation and the full-width forms.
constexpr Range Wide[] = {{0x2E80, 0x312F}, {0x3190, 0x4DBF},   {0x4E00, 0xA4CF},
                          {0xF900, 0xFAFF}, {0xFE30, 0xFE4F},   {0xFF01, 0xFF9F},
                          {0xFFE0, 0xFFE6}, {0x1B000, 0x1B2FF}, {0x20000, 0x3FFFD}};

/// What no line begins with: closing marks, small kana, signs that repeat or lengthen, units, and what sticks
/// to both its neighbours.
constexpr std::u32string_view NeverFirst =
    U"!\"%'),-./:;?]}\u00A0\u00B0\u00BB\u200D\u2010\u2011\u2012\u2013\u2019\u201D\u2025"
    U"\u2026\u202F\u2030\u2031\u2032\u2033\u2060\u2103\u3000\u3001\u3002\u3005\u3009\u300B"
    U"\u300D\u300F\u3011\u3015\u3017\u3019\u301B\u301C\u301E\u301F\u303B\u303C\u3041\u3043"
    U"\u3045\u3047\u3049\u3063\u3083\u3085\u3087\u308E\u3095\u3096\u309B\u309C\u309D\u309E"
    U"\u30A0\u30A1\u30A3\u30A5\u30A7\u30A9\u30C3\u30E3\u30E5\u30E7\u30EE\u30F5\u30F6\u30FB"
    U"\u30FC\u30FD\u30FE\u31F0\u31F1\u31F2\u31F3\u31F4\u31F5\u31F6\u31F7\u31F8\u31F9\u31FA"
    U"\u31FB\u31FC\u31FD\u31FE\u31FF\uFEFF\uFF01\uFF05\uFF09\uFF0C\uFF0E\uFF1A\uFF1B\uFF1F"
    U"\uFF3D\uFF5D\uFF60\uFF61\uFF63\uFF64\uFF65\uFF67\uFF68\uFF69\uFF6A\uFF6B\uFF6C\uFF6D"
    U"\uFF6E\uFF6F\uFF70\uFF9E\uFF9F";

/// What no line ends with: opening marks, signs of currencies, and what sticks to both its neighbours.
constexpr std::u32string_view NeverLast =
    U"\"$'([{\u00A0\u00A3\u00A5\u00AB\u200D\u2011\u2018\u201C\u202F\u2060\u20AC\u2116"
    U"\u3008\u300A\u300C\u300E\u3010\u3014\u3016\u3018\u301A\u301D\uFEFF\uFF04\uFF08\uFF3B"
    U"\uFF5B\uFF5F\uFF62\uFFE1\uFFE5";

static_assert(std::ranges::is_sorted(Combining, {}, &Range::last));
static_assert(std::ranges::is_sorted(Wide, {}, &Range::last));
static_assert(std::ranges::is_sorted(NeverFirst) && std::ranges::is_sorted(NeverLast));

bool IsIn(std::u32string_view characters, char32_t character) {
    return std::ranges::binary_search(characters, character);
}

bool IsIn(std::span<const Range> ranges, char32_t character) {
    const auto range = std::ranges::lower_bound(ranges, character, {}, &Range::last);
    return range != ranges.end() && range->first <= character;
}

}  // namespace

bool MFindCombining(char32_t character) {
    return IsIn(Combining, character);
}

bool MFindBreak(char32_t left, char32_t right) {
    if (IsIn(Combining, right)) return false;
    if (left == ZeroWidthSpace) return true;
    return (IsIn(Wide, left) || IsIn(Wide, right)) && !IsIn(NeverFirst, right) && !IsIn(NeverLast, left);
}
