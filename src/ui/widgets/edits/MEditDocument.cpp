#include "ui/widgets/edits/MEditDocument.h"

#include <algorithm>
#include <utility>

MTextRange MEditDocument::GetSelection() const {
    return {std::min(anchor, cursor), std::max(anchor, cursor)};
}

MString MEditDocument::GetSelectedText() const {
    const MTextRange selection = GetSelection();
    return text.GetText(selection.start, selection.GetLength());
}

void MEditDocument::SetText(const MString& newText) {
    history.Clear();
    const int32_t oldCursor = cursor;
    const int32_t oldAnchor = anchor;
    Replace({0, GetLength()}, Fit(Clean(newText), GetLength()));
    Select(oldAnchor, oldCursor);
}

void MEditDocument::Select(int32_t newAnchor, int32_t newCursor) {
    anchor = MGetStopAt(text, newAnchor);
    cursor = MGetStopAt(text, newCursor);
    history.Separate();
}

void MEditDocument::MoveCursor(int32_t newCursor, Anchor behaviour) {
    Select(behaviour == Anchor::Stays ? anchor : newCursor, newCursor);
}

bool MEditDocument::Insert(const MString& added, Kind kind) {
    MString accepted = Clean(added);
    if (filter) accepted.KeepAccepted(*filter);
    const MTextRange selection = GetSelection();
    accepted = Fit(accepted, selection.GetLength());
    // Where nothing can go in, nothing that was selected goes.
    if (accepted.IsEmpty()) return false;
    history.Add({selection.start, GetSelectedText(), accepted, {anchor, cursor}}, kind);
    Replace(selection, accepted);
    return true;
}

bool MEditDocument::Remove(int32_t to, Kind kind) {
    MTextRange removed = GetSelection();
    if (removed.IsEmpty())
        removed = {std::min(cursor, to), std::max(cursor, to)};
    else
        kind = Kind::Other;
    if (removed.IsEmpty()) return false;
    history.Add({removed.start, text.GetText(removed.start, removed.GetLength()), {}, {anchor, cursor}},
                kind);
    Replace(removed, {});
    return true;
}

void MEditDocument::SetMaximumLength(int32_t newLength) {
    newLength = std::clamp(newLength, 0, MEditText::MaximumLength);
    // What was longer does not come back.
    if (std::exchange(maximumLength, newLength) > newLength) SetText(text.GetText());
}

void MEditDocument::SetMultiLine(bool newIsMultiLine) {
    isMultiLine = newIsMultiLine;
    if (!isMultiLine) SetText(text.GetText());
}

MString MEditDocument::Clean(const MString& raw) const {
    const auto isPlain = [&](MChar unit) {
        return unit >= 0xA0 ? unit != 0x2028 && unit != 0x2029
                            : unit == '\t' || (unit >= ' ' && unit < 0x7F) || (isMultiLine && unit == '\n');
    };
    const int32_t length = raw.GetLength();
    int32_t plain = 0;
    while (plain < length && isPlain(raw[plain])) ++plain;
    if (plain == length) return raw;

    MString cleaned;
    char16_t* const units = cleaned.Resize(length);
    int32_t count = 0;
    for (int32_t i = 0; i < length; ++i) {
        const MChar unit = raw[i];
        const bool isBehindReturn = i > 0 && raw[i - 1] == '\r';
        if (isPlain(unit) && !(unit == '\n' && isBehindReturn))
            units[count++] = unit;
        else if (unit == '\r' || unit == 0x2028 || unit == 0x2029 || (unit == '\n' && !isBehindReturn))
            units[count++] = isMultiLine ? u'\n' : u' ';
    }
    cleaned.Cut(count);
    return cleaned;
}

MString MEditDocument::Fit(const MString& added, int32_t count) const {
    int32_t room = std::max(0, maximumLength - (GetLength() - count));
    if (added.GetLength() <= room) return added;
    if (room > 0 && added[room].IsLowSurrogate() && added[room - 1].IsHighSurrogate()) --room;
    return added.Substring(0, room);
}

void MEditDocument::Replace(MTextRange range, const MString& added) {
    text.Replace(range.start, range.GetLength(), added);
    // What was inserted may stand on the character before it, and what follows on it.
    cursor = MGetStopAt(text, range.start + added.GetLength());
    anchor = cursor;
    if (onReplaced) onReplaced({range.start, range.GetLength(), added.GetLength()});
}

bool MEditDocument::Apply(const MEditStep* step, Direction direction) {
    if (!step) return false;
    const MEditStep taken = *step;
    const bool isBack = direction == Direction::Back;
    const int32_t removed = (isBack ? taken.inserted : taken.removed).GetLength();
    Replace({taken.start, taken.start + removed}, isBack ? taken.removed : taken.inserted);
    if (isBack) Select(taken.selection.start, taken.selection.end);
    return true;
}
