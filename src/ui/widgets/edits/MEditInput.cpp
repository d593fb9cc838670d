// What the user does to an edit: changes, the mouse, the menu. The keys are in MEditKeys.cpp.

#include "ui/control/windows/MWindows.h"
#include "ui/widgets/edits/MEdit.h"
#include "ui/widgets/edits/MKeyboardControl.h"
#include "ui/widgets/edits/MTextClipboard.h"
#include "ui/widgets/menus/MMenu.h"

#include <algorithm>
#include <utility>

namespace {

enum MenuItem : int32_t { CopyItem, PasteItem, ClearItem, KeyboardItem };

}  // namespace

void MEdit::Edit(const std::function<bool()>& action) {
    if (isReadOnly) return;
    const MTextRange before = GetSelection();
    const bool isChanged = action();
    wantedX = -1;
    InvalidateSelection(before);
    if (!isChanged) return;
    ScrollToCursor();
    Reveal(GetCaret());
    ShowCaret();
    RaiseChange();
}

void MEdit::RaiseChange() {
    const MControlRef self(this);
    if (stringEvent.HasHandlers()) stringEvent.Fire({this, GetText()});
    if (self) ExecuteOnChange();
}

void MEdit::Insert(const MString& text) {
    Edit([&] { return document.Insert(text, MEditHistory::Kind::Other); });
}

void MEdit::Remove(int32_t to) {
    Edit([&] { return document.Remove(to, MEditHistory::Kind::Deleting); });
}

void MEdit::Clear() {
    Edit([&] {
        if (GetSelection().IsEmpty()) document.Select(0, GetLength());
        return document.Remove(GetCursor(), MEditHistory::Kind::Other);
    });
}

void MEdit::Undo() {
    Edit([&] { return document.Undo(); });
}

void MEdit::Redo() {
    Edit([&] { return document.Redo(); });
}

void MEdit::Copy() const {
    if (!showChar && !GetSelection().IsEmpty()) (void)MCopyToClipboard(GetSelectedText());
}

void MEdit::Cut() {
    if (showChar || isReadOnly || GetSelection().IsEmpty()) return;
    if (MCopyToClipboard(GetSelectedText())) Remove(GetCursor());
}

void MEdit::Paste() {
    if (!isReadOnly) Insert(MGetClipboardText());
}

bool MEdit::ProcessEvent(const MSystemEvent& event) {
    switch (event.type) {
    case MEventType::GotFocus:
        // Whoever comes by the keyboard replaces the text; a press puts the cursor somewhere right after this.
        if (!IsMultiLine() && !std::exchange(isFocusKept, false)) SelectAll();
        ShowCaret();
        Invalidate();
        return true;
    case MEventType::LostFocus:
        isFocusKept = HasFocus();
        isCaretShown = false;
        StopTimer();
        Invalidate();
        return true;
    case MEventType::Character: return ProcessCharacter(event);
    case MEventType::KeyDown:
        if (ProcessKey(event)) return true;
        return MControl::ProcessEvent(event);
    default: return event.HasPosition() ? ProcessMouse(event) : MControl::ProcessEvent(event);
    }
}

MStdCursor MEdit::GetCursorAt(MPoint point) {
    return IsEnabled() && GetTextRectangle().Contains(point) ? MStdCursor::IBeam
                                                             : MControl::GetCursorAt(point);
}

bool MEdit::ProcessMouse(const MSystemEvent& event) {
    const MPoint point = GetOwnPoint(event.point);
    switch (event.type) {
    case MEventType::LeftDown:
        dragWord = {};
        isDragging = true;
        wantedX = -1;
        MoveCursor(GetIndexAt(point), event.Has(MModifierShift) ? Anchor::Stays : Anchor::Moves);
        return true;
    case MEventType::LeftDoubleClick:
        // Words tell something of a password.
        dragWord = showChar ? MTextRange{0, GetLength()} : MGetWordAt(document.GetText(), GetIndexAt(point));
        isDragging = true;
        SetSelection(dragWord.start, dragWord.end);
        return true;
    case MEventType::MouseMove:
        if (isDragging) DragTo(point);
        return true;
    case MEventType::LeftUp:
        if (std::exchange(isDragging, false)) ShowCaret();
        return true;
    case MEventType::RightDown: {
        const int32_t index = GetIndexAt(point);
        const MTextRange selection = GetSelection();
        if (index < selection.start || index >= selection.end) MoveCursor(index, Anchor::Moves);
        return true;
    }
    case MEventType::RightUp: OpenMenu(point); return true;
    case MEventType::Wheel: {
        if (!IsMultiLine()) return false;
        const MPoint before = scroll;
        const int32_t count = -event.wheelDelta * RowsOfWheel;
        event.Has(MModifierShift) ? ScrollTo({scroll.x + count * GetRowHeight(), scroll.y})
                                  : ScrollRows(count);
        return scroll != before;
    }
    default: return false;
    }
}

void MEdit::DragTo(MPoint point) {
    dragPoint = point;
    const int32_t index = GetIndexAt(point);
    if (dragWord.IsEmpty()) {
        MoveCursor(index, Anchor::Stays);
    } else {
        const MTextRange word = MGetWordAt(document.GetText(), index);
        if (index < dragWord.start)
            SetSelection(dragWord.end, word.start);
        else
            SetSelection(dragWord.start, std::max(dragWord.end, index >= dragWord.end ? word.end : 0));
    }
    // Outside it goes on by itself.
    if (!GetTextRectangle().Contains(point)) StartTimer(ScrollTime);
}

void MEdit::OnCaptureLost() {
    if (std::exchange(isDragging, false)) ShowCaret();
    MControl::OnCaptureLost();
}

void MEdit::OnTimer() {
    if (isDragging && !GetTextRectangle().Contains(dragPoint)) return DragTo(dragPoint);
    isCaretShown = !isCaretShown && !IsReading();
    InvalidateRect(GetCaret());
}

void MEdit::MoveCursor(int32_t index, Anchor anchor) {
    const MTextRange before = GetSelection();
    const MRect caret = GetStyle() ? GetCaret() : MRect();
    document.MoveCursor(index, anchor);
    InvalidateRect(caret);
    InvalidateSelection(before);
    ScrollToCursor();
    // Under a mouse that is held down nothing moves.
    if (!isDragging) Reveal(GetCaret());
    ShowCaret();
}

void MEdit::OpenMenu(MPoint point) {
    if (!menu) {
        menu = std::make_unique<MMenu>();
        menu->OnItem().Connect(this, &MEdit::OnMenuItem);
    }
    menu->Clear();
    const auto add = [&](const char* text, MenuItem item, MStdIcon icon, bool isEnabled) {
        menu->AddItem(MTranslate(text), item, icon).isEnabled = isEnabled;
    };
    add("Copy", CopyItem, MStdIcon::ClipboardCopy, !showChar && !GetSelection().IsEmpty());
    add("Paste", PasteItem, MStdIcon::ClipboardPaste, !isReadOnly && MHasClipboardText());
    add("Clear", ClearItem, MStdIcon::Delete, !isReadOnly && GetLength() > 0);
    add("Keyboard", KeyboardItem, MStdIcon::Keyboard, !isReadOnly);
    menu->OpenAt(*this, point);
}

void MEdit::OnMenuItem(const MOnItemParams<MMenuItem>& params) {
    switch (params.item->id) {
    case CopyItem: Copy(); break;
    case PasteItem: Paste(); break;
    case ClearItem: Clear(); break;
    default:
        if (!keyboard) keyboard = std::make_unique<MKeyboardWindow>();
        keyboard->ShowFor(*this);
    }
}
