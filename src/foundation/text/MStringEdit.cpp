#include "foundation/text/MString.h"

#include "foundation/base/MList.h"

#include <algorithm>

MString MString::Substring(int32_t start, int32_t count) const {
    if (start < 0 || start >= length || count <= 0) return MString();
    if (start == 0 && count >= length) return *this;
    const int32_t taken = std::min(count, length - start);
    return IsLiteral() ? Copy(narrow + start, taken) : Copy(units + start, taken);
}

template <class FindFrom>
int32_t MString::ReplaceFound(FindFrom findFrom, int32_t count, const MString& replacement) {
    int32_t position = findFrom(0);
    if (position == NotFound) return 0;
    int32_t replaced = 0;
    int32_t copied = 0;
    MString result;
    for (; position != NotFound; position = findFrom(copied)) {
        result.Append(Substring(copied, position - copied));
        result.Append(replacement);
        copied = position + count;
        ++replaced;
    }
    result.Append(Substring(copied));
    *this = std::move(result);
    return replaced;
}

int32_t MString::Replace(const MString& text, const MString& replacement) {
    if (text.IsEmpty()) return 0;
    return ReplaceFound([&](int32_t start) { return Find(text, start); }, text.length, replacement);
}

int32_t MString::Replace(const MList<MString>& texts, const MList<MString>& replacements) {
    int32_t total = 0;
    int32_t replaced;
    do {
        replaced = 0;
        for (int32_t i = 0; i < texts.GetCount(); ++i) replaced += Replace(texts[i], replacements[i]);
        total += replaced;
    } while (replaced > 0);
    return total;
}

int32_t MString::ReplaceChar(MChar character, const MString& replacement) {
    return ReplaceFound([&](int32_t start) { return FindChar(character, start); }, 1, replacement);
}

void MString::Insert(int32_t index, MChar character) {
    MString text;
    text.Append(character);
    Insert(index, text);
}

void MString::Insert(int32_t index, const MString& text) {
    if (text.IsEmpty()) return;
    const MString inserted = text;
    const int32_t at = std::clamp(index, 0, length);
    const int32_t oldLength = length;
    Append(inserted);
    Reserve(length + 1);
    std::move_backward(units + at, units + oldLength, units + length);
    for (int32_t i = 0; i < inserted.length; ++i) units[at + i] = inserted[i];
}

void MString::Remove(int32_t start, int32_t count) {
    if (start < 0 || start >= length || count <= 0) return;
    const int32_t removed = std::min(count, length - start);
    Reserve(length + 1);
    std::copy(units + start + removed, units + length, units + start);
    Resize(length - removed);
}

void MString::ReplaceRange(int32_t start, int32_t count, const MString& text) {
    // The text may be this string itself.
    const MString inserted = text;  // NOLINT(performance-unnecessary-copy-initialization)
    Remove(start, count);
    Insert(start, inserted);
}

void MString::SetChar(int32_t index, MChar character) {
    Reserve(length + 1);
    units[index] = character;
}

void MString::Cut(int32_t count) {
    if (count < length) Remove(std::max(count, 0));
}

void MString::TrimLeft() {
    int32_t blanks = 0;
    while (blanks < length && (*this)[blanks].IsBlank()) ++blanks;
    Remove(0, blanks);
}

void MString::TrimRight() {
    int32_t kept = length;
    while (kept > 0 && (*this)[kept - 1].IsBlank()) --kept;
    Cut(kept);
}

void MString::Trim() {
    *this = Trimmed();
}

MString MString::Trimmed() const {
    int32_t first = 0;
    int32_t end = length;
    while (first < end && (*this)[first].IsBlank()) ++first;
    while (end > first && (*this)[end - 1].IsBlank()) --end;
    return Substring(first, end - first);
}

template <class Keep>
void MString::KeepIf(Keep keep) {
    Reserve(length + 1);
    char16_t* end = std::remove_if(units, units + length, [&](char16_t unit) { return !keep(MChar(unit)); });
    Resize(static_cast<int32_t>(end - units));
}

void MString::RemoveNonTextControls() {
    KeepIf([](MChar c) { return !c.IsNonTextControl(); });
}

void MString::RemoveBlanks() {
    KeepIf([](MChar c) { return !c.IsBlank(); });
}

void MString::RemoveNewlines() {
    KeepIf([](MChar c) { return !c.IsNewline(); });
}

void MString::ChangeBlanksToSpaces() {
    Reserve(length + 1);
    std::replace_if(
        units, units + length, [](char16_t unit) { return MChar(unit).IsBlank(); }, u' ');
}

MString MString::ToLower() const {
    MString lower = *this;
    lower.MakeLower();
    return lower;
}

void MString::MakeLower() {
    Reserve(length + 1);
    std::transform(units, units + length, units,
                   [](char16_t unit) -> char16_t { return MChar(unit).ToLower(); });
}

MList<MString> MString::Split(MChar delimiter) const {
    MList<MString> pieces;
    int32_t start = 0;
    while (start < length) {
        int32_t end = FindChar(delimiter, start);
        if (end == NotFound) end = length;
        if (end > start) pieces.Add(Substring(start, end - start));
        start = end + 1;
    }
    return pieces;
}
