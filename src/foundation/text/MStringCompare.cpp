#include "foundation/text/MString.h"

#include <algorithm>

namespace {

/// Calls `action` with the text as it is held, 8-bit or 16-bit, so that loops need no test per character.
template <class Action>
auto WithText(const MString& text, Action action) {
    return text.IsLiteral() ? action(text.GetLiteral()) : action(text.GetUnits());
}

template <class Fold, class Left, class Right>
int32_t CompareFolded(const Left* left, int32_t leftLength, const Right* right, int32_t rightLength,
                      Fold fold) {
    const int32_t common = std::min(leftLength, rightLength);
    for (int32_t i = 0; i < common; ++i) {
        const MChar l(left[i]);
        const MChar r(right[i]);
        if (l == r) continue;
        const int32_t difference = static_cast<int32_t>(fold(l)) - static_cast<int32_t>(fold(r));
        if (difference != 0) return difference;
    }
    if (leftLength > common) return fold(MChar(left[common]));
    if (rightLength > common) return -static_cast<int32_t>(fold(MChar(right[common])));
    return 0;
}

constexpr auto FoldOnly = [](MChar character) -> char16_t { return character.FoldDiacritics(); };
constexpr auto FoldWithCase = [](MChar character) -> char16_t {
    return character.FoldDiacritics().ToLower();
};

template <class Text, class Pattern>
int32_t FindText(const Text* text, int32_t length, const Pattern* pattern, int32_t patternLength,
                 int32_t start) {
    const MChar first = MChar(pattern[0]).ToLower();
    for (int32_t i = start; i <= length - patternLength; ++i) {
        if (MChar(text[i]).ToLower() != first) continue;
        int32_t matched = 1;
        while (matched < patternLength &&
               MChar(text[i + matched]).ToLower() == MChar(pattern[matched]).ToLower())
            ++matched;
        if (matched == patternLength) return i;
    }
    return MString::NotFound;
}

template <class Fold>
int32_t CompareTexts(const MString& left, int32_t start, int32_t leftLength, const MString& right,
                     int32_t rightLength, Fold fold) {
    return WithText(left, [&](const auto* l) {
        return WithText(
            right, [&](const auto* r) { return CompareFolded(l + start, leftLength, r, rightLength, fold); });
    });
}

}  // namespace

int32_t MString::Compare(const MString& other) const {
    return CompareTexts(*this, 0, length, other, other.length, FoldOnly);
}

int32_t MString::CompareNoCase(const MString& other, int32_t count, int32_t start) const {
    if (units == other.units && flags == other.flags && start == 0) return 0;
    const int32_t from = std::clamp(start, 0, length);
    return CompareTexts(*this, from, std::min(length - from, count), other, std::min(other.length, count),
                        FoldWithCase);
}

bool MString::IsExactly(const MString& other) const {
    if (length != other.length) return false;
    return CompareTexts(*this, 0, length, other, length, [](MChar c) -> char16_t { return c; }) == 0;
}

bool MString::StartsWith(const MString& text) const {
    return text.length <= length && Substring(0, text.length).Find(text) == 0;
}

bool MString::EndsWith(const MString& text) const {
    return text.length <= length && Substring(length - text.length).Find(text) == 0;
}

int32_t MString::FindChar(MChar character, int32_t start) const {
    return WithText(*this, [&](const auto* text) {
        for (int32_t i = std::max(start, 0); i < length; ++i)
            if (MChar(text[i]) == character) return i;
        return NotFound;
    });
}

int32_t MString::FindCharBackward(MChar character, int32_t start) const {
    return WithText(*this, [&](const auto* text) {
        for (int32_t i = std::min(start, length - 1); i >= 0; --i)
            if (MChar(text[i]) == character) return i;
        return NotFound;
    });
}

int32_t MString::Find(const MString& text, int32_t start) const {
    const int32_t from = std::max(start, 0);
    if (text.IsEmpty()) return from <= length ? from : NotFound;
    return WithText(*this, [&](const auto* own) {
        return WithText(
            text, [&](const auto* pattern) { return FindText(own, length, pattern, text.length, from); });
    });
}
