#include "ui/widgets/edits/MEditRows.h"

#include "foundation/text/MUnicode.h"
#include "ui/text/MLineBreaks.h"
#include "ui/widgets/edits/MTextStops.h"

#include <algorithm>

MEditPen::MEditPen(const MEditLook& look)
    : showChar(look.showChar), tabWidth(std::max(1, 8 * look.font->GetGlyph(' ').advance)) {
    pen.SetFont(*look.font);
}

const MGlyph* MEditPen::Take(char32_t character) {
    if (showChar) return pen.Take(showChar);
    if (character != '\t') return pen.Take(character);
    pen.TakeObject(tabWidth - pen.GetEnd() % tabWidth);
    return nullptr;
}

bool MEditRows::SetLook(const MEditLook& newLook) {
    if (newLook == look) return false;
    Forget();
    look = newLook;
    before.clear();
    (void)BreakFrom(0, text.GetLength() + 1);
    return true;
}

void MEditRows::Forget() {
    look = {};
    before = {{0, 0}};
    behind.clear();
    widest = 0;
    isWidestKnown = false;
}

bool MEditRows::Fits(const MEditLook& otherLook, int32_t count) const {
    int32_t unused = 0;
    for (int32_t start = 0; count > 0; --count) {
        const int32_t end = BreakRow(otherLook, start, unused);
        if (IsLastRow(start, end)) return true;
        start = end;
    }
    return false;
}

MEditRows::Changed MEditRows::Update(int32_t start, int32_t removed, int32_t inserted) {
    // The rows still tell of the old text.
    const int32_t added = inserted - removed;
    const int32_t oldLength = text.GetLength() - added;
    const auto getOldStart = [&](int32_t row) {
        const auto index = static_cast<size_t>(row);
        return index < before.size() ? before[index].start
                                     : oldLength - behind[behind.size() - 1 - (index - before.size())].start;
    };
    int32_t low = 0;
    for (int32_t high = GetCount(); high - low > 1;) {
        const int32_t middle = low + (high - low) / 2;
        (getOldStart(middle) <= start ? low : high) = middle;
    }
    // Its first word may fit into the row before now, and where that was cut within a word, the first character
    // may also be the one that did not fit into the row before that.
    if (look.wrapWidth > 0) low = std::max(0, low - 2);
    // Where the gap lies is told by distances from the end, which the change has not touched behind it.
    while (static_cast<int32_t>(before.size()) > low) {
        behind.push_back({oldLength - before.back().start, before.back().width});
        before.pop_back();
    }
    while (static_cast<int32_t>(before.size()) < low) {
        before.push_back({oldLength - behind.back().start, behind.back().width});
        behind.pop_back();
    }
    return BreakFrom(oldLength - behind.back().start, start + inserted);
}

MEditRows::Changed MEditRows::BreakFrom(int32_t start, int32_t unchangedFrom) {
    Changed changed{static_cast<int32_t>(before.size()), 0, 0};
    const int32_t length = text.GetLength();
    const auto drop = [&] {
        if (behind.back().width == widest) isWidestKnown = false;
        behind.pop_back();
        ++changed.removed;
    };
    while (true) {
        while (!behind.empty() && length - behind.back().start < start) drop();
        // Behind the change, rows that begin where others have begun are the same.
        const bool isKnown = !behind.empty() && length - behind.back().start == start;
        if (isKnown && start >= unchangedFrom) break;
        int32_t width = 0;
        const int32_t end = BreakRow(look, start, width);
        before.push_back({start, width});
        widest = std::max(widest, width);
        ++changed.added;
        if (IsLastRow(start, end)) {
            while (!behind.empty()) drop();
            break;
        }
        start = end;
    }
    return changed;
}

bool MEditRows::IsLastRow(int32_t start, int32_t end) const {
    return end == text.GetLength() && (end == start || text[end - 1] != '\n');
}

int32_t MEditRows::BreakRow(const MEditLook& shown, int32_t start, int32_t& width) const {
    MEditPen pen(shown);
    int32_t lastBreak = start;
    char32_t previous = 0;
    const int32_t length = text.GetLength();
    for (int32_t index = start; index < length;) {
        const int32_t at = index;
        const char32_t character = MTakeCodePoint(text, index);
        if (character == '\n') {
            width = shown.wrapWidth > 0 ? 0 : pen.GetEnd();
            return index;
        }
        pen.Take(character);
        if (shown.wrapWidth > 0 && at > start) {
            const bool isAttached = MIsAttached(previous, character);
            if (previous > ' ' && !isAttached && MMayBreakBetween(previous, character)) lastBreak = at;
            if (character > ' ' && !isAttached && pen.GetEnd() > shown.wrapWidth)
                return lastBreak > start ? lastBreak : at;
        }
        if (character <= ' ') lastBreak = index;
        previous = character;
    }
    width = shown.wrapWidth > 0 ? 0 : pen.GetEnd();
    return length;
}

int32_t MEditRows::GetStart(int32_t row) const {
    const auto index = static_cast<size_t>(row);
    if (index < before.size()) return before[index].start;
    return text.GetLength() - behind[behind.size() - 1 - (index - before.size())].start;
}

int32_t MEditRows::GetEnd(int32_t row) const {
    if (row + 1 == GetCount()) return text.GetLength();
    const int32_t end = GetStart(row + 1);
    return text[end - 1] == '\n' ? end - 1 : end;
}

int32_t MEditRows::GetRowOf(int32_t index) const {
    int32_t low = 0;
    for (int32_t high = GetCount(); high - low > 1;) {
        const int32_t middle = low + (high - low) / 2;
        (GetStart(middle) <= index ? low : high) = middle;
    }
    return low;
}

int32_t MEditRows::GetX(int32_t row, int32_t index) const {
    MEditPen pen(look);
    const int32_t end = std::min(index, GetEnd(row));
    int32_t at = GetStart(row);
    while (at < end) pen.Take(MTakeCodePoint(text, at));
    return pen.GetEnd();
}

int32_t MEditRows::GetIndexAt(int32_t row, int32_t x) const {
    MEditPen pen(look);
    const int32_t last = GetLastStop(row);
    int32_t at = GetStart(row);
    while (at < last) {
        const int32_t left = pen.GetEnd();
        const int32_t next = MGetNextStop(text, at);
        for (int32_t index = at; index < next;) pen.Take(MTakeCodePoint(text, index));
        if (x < left + (pen.GetEnd() - left + 1) / 2) return at;
        at = next;
    }
    return last;
}

int32_t MEditRows::GetLastStop(int32_t row) const {
    const int32_t end = GetEnd(row);
    const bool isBroken = row + 1 < GetCount() && end == GetStart(row + 1);
    return isBroken ? std::max(GetStart(row), MGetPreviousStop(text, end)) : end;
}

int32_t MEditRows::GetWidth() {
    if (isWidestKnown) return widest;
    widest = 0;
    for (const auto* rows : {&before, &behind})
        for (const Row& row : *rows) widest = std::max(widest, row.width);
    isWidestKnown = true;
    return widest;
}
