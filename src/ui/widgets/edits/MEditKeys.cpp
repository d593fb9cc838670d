// The keys of an edit.

#include "ui/widgets/edits/MEdit.h"

#include <algorithm>
#include <utility>

void MEdit::MoveByRows(int32_t count, Anchor anchor) {
    PrepareRows();
    const int32_t row = rows.GetRowOf(GetCursor());
    const int32_t x = wantedX < 0 ? rows.GetX(row, GetCursor()) : wantedX;
    const auto target =
        static_cast<int32_t>(std::clamp<int64_t>(int64_t{row} + count, 0, int64_t{rows.GetCount()} - 1));
    MoveCursor(rows.GetIndexAt(target, x), anchor);
    wantedX = x;
}

void MEdit::BringCursorIntoView() {
    PrepareRows();
    const MRect area = GetTextRectangle();
    const MRect row = GetRowRectangle(rows.GetRowOf(GetCursor()));
    if (row.top >= area.top && row.bottom <= area.bottom) return;
    const int32_t first = MAddPixels(scroll.y, GetRowHeight() - 1) / GetRowHeight();
    document.MoveCursor(rows.GetStart(std::min(first, rows.GetCount() - 1)), Anchor::Moves);
}

bool MEdit::ProcessCharacter(const MSystemEvent& event) {
    const MChar unit = event.character;
    // Ctrl and Alt together give the third sign of a key.
    if (isReadOnly || (event.Has(MModifierControl) && !event.Has(MModifierAlt))) return false;
    if (unit.IsHighSurrogate()) {
        highSurrogate = unit;
        return true;
    }
    char16_t units[] = {std::exchange(highSurrogate, u'\0'), unit};
    const bool isPair = units[0] != 0 && unit.IsLowSurrogate();
    if (!isPair && (unit.IsControl() || unit == 0x7F || unit.IsLowSurrogate())) return false;
    const MString typed = MString::Copy(isPair ? units : units + 1, isPair ? 2 : 1);
    Edit([&] { return document.Insert(typed, MEditHistory::Kind::Typing); });
    return true;
}

bool MEdit::ProcessKey(const MSystemEvent& event) {
    const bool isControl = event.Has(MModifierControl);
    const bool isShift = event.Has(MModifierShift);
    if (isControl && event.Has(MModifierAlt)) return false;
    const int32_t cursor = GetCursor();
    const MEditText& text = document.GetText();
    switch (event.key) {
    case MKeyBackspace:
        Remove(isControl && !showChar ? MGetPreviousWord(text, cursor) : MGetPreviousStop(text, cursor));
        return true;
    case MKeyDelete:
        if (isShift)
            Cut();
        else
            Remove(isControl && !showChar ? MGetNextWord(text, cursor) : MGetNextStop(text, cursor));
        return true;
    case MKeyInsert:
        if (isControl) Copy();
        if (isShift) Paste();
        return true;
    case MKeyTab:
        if (!isControl || isReadOnly) return false;
        Insert("\t");
        return true;
    case MKeyEnter:
        if (!IsMultiLine()) return Commit();
        if (isControl || isReadOnly) return false;
        Edit([&] { return document.Insert("\n", MEditHistory::Kind::Typing); });
        return true;
    case MKeyMenu: {
        const MRect caret = GetCaret();
        OpenMenu({caret.left, caret.bottom});
        return true;
    }
    default: break;
    }
    if (ProcessMove(event)) return true;
    if (isControl) return ProcessControlKey(event);
    // The keys that give characters are nobody's hot keys here.
    return !event.Has(MModifierAlt) && !isReadOnly &&
           (event.key == MKeySpace || (event.key >= '0' && event.key <= 'Z') ||
            (event.key >= MKeyNumpad0 && event.key <= MKeyNumpadDivide));
}

bool MEdit::Commit() {
    MEvent<MOnNotifyParams>& event = OnChange(Change::Committed);
    return event.HasHandlers() && event.Fire({this});
}

bool MEdit::ProcessControlKey(const MSystemEvent& event) {
    switch (event.key) {
    case 'A': SelectAll(); return true;
    case 'C': Copy(); return true;
    case 'X': Cut(); return true;
    case 'V': Paste(); return true;
    case 'Z': event.Has(MModifierShift) ? Redo() : Undo(); return true;
    case 'Y': Redo(); return true;
    default: return false;
    }
}

bool MEdit::ProcessScroll(int32_t key) {
    switch (key) {
    case MKeyUp: ScrollRows(-1); return true;
    case MKeyDown: ScrollRows(1); return true;
    case MKeyPageUp: ScrollRows(-GetRowsOfPage()); return true;
    case MKeyPageDown: ScrollRows(GetRowsOfPage()); return true;
    case MKeyHome: ScrollTo({}); return true;
    case MKeyEnd: ScrollTo({0, GetTextSize().y}); return true;
    default: return false;
    }
}

int32_t MEdit::GetRowsOfPage() {
    return std::max(1, GetTextRectangle().GetHeight() / GetRowHeight() - 1);
}

bool MEdit::ProcessMove(const MSystemEvent& event) {
    const Anchor anchor = event.Has(MModifierShift) ? Anchor::Stays : Anchor::Moves;
    const bool isControl = event.Has(MModifierControl);
    const bool isByWords = isControl && !showChar;
    const MEditText& text = document.GetText();
    if (IsReading()) {
        if (anchor == Anchor::Moves && ProcessScroll(event.key)) return true;
        if (GetSelection().IsEmpty()) BringCursorIntoView();
    }
    const MTextRange selection = GetSelection();
    const int32_t cursor = GetCursor();
    const bool isLeaving = anchor == Anchor::Moves && !selection.IsEmpty() && !isControl;
    const auto move = [&](int32_t target) {
        wantedX = -1;
        MoveCursor(target, anchor);
        return true;
    };
    PrepareRows();
    const int32_t row = rows.GetRowOf(cursor);
    switch (event.key) {
    case MKeyLeft:
        return move(isLeaving   ? selection.start
                    : isByWords ? MGetPreviousWord(text, cursor)
                    : isControl ? 0
                                : MGetPreviousStop(text, cursor));
    case MKeyRight:
        return move(isLeaving   ? selection.end
                    : isByWords ? MGetNextWord(text, cursor)
                    : isControl ? GetLength()
                                : MGetNextStop(text, cursor));
    case MKeyHome: return move(isControl ? 0 : rows.GetStart(row));
    case MKeyEnd: return move(isControl ? GetLength() : rows.GetLastStop(row));
    case MKeyUp:
    case MKeyDown:
    case MKeyPageUp:
    case MKeyPageDown: {
        if (!IsMultiLine()) return false;
        const bool isPage = event.key == MKeyPageUp || event.key == MKeyPageDown;
        const bool isUp = event.key == MKeyUp || event.key == MKeyPageUp;
        if (isControl && !isPage)
            ScrollRows(isUp ? -1 : 1);
        else
            MoveByRows((isUp ? -1 : 1) * (isPage ? GetRowsOfPage() : 1), anchor);
        return true;
    }
    default: return false;
    }
}
