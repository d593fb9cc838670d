#include "ui/widgets/files/MNamePatterns.h"

#include <algorithm>

namespace {

/// Goes back to the last star alone, so that no pattern takes longer than the product of both lengths.
bool MatchOne(const MString& pattern, const MString& name) {
    const auto isSame = [](MChar a, MChar b) {
        return a.FoldDiacritics().ToLower() == b.FoldDiacritics().ToLower();
    };
    int32_t star = -1;
    int32_t starAt = 0;
    int32_t p = 0;
    int32_t n = 0;
    while (n < name.GetLength()) {
        const bool isLeft = p < pattern.GetLength();
        if (isLeft && pattern[p] == '*') {
            star = p++;
            starAt = n;
        } else if (isLeft && (pattern[p] == '?' || isSame(pattern[p], name[n]))) {
            ++p;
            ++n;
        } else if (star >= 0) {
            p = star + 1;
            n = ++starAt;
        } else {
            return false;
        }
    }
    while (p < pattern.GetLength() && pattern[p] == '*') ++p;
    return p == pattern.GetLength();
}

}  // namespace

MNamePatterns::MNamePatterns(const MString& text) {
    for (const MString& pattern : text.Split(';')) patterns.Add(pattern.Trimmed());
}

bool MNamePatterns::Match(const MString& name) const {
    return patterns.IsEmpty() || std::any_of(patterns.begin(), patterns.end(), [&](const MString& pattern) {
               return pattern == "*.*" || MatchOne(pattern, name);
           });
}
