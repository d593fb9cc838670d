#pragma once

#include "ui/control/MControl.h"
#include "ui/control/windows/MTimer.h"
#include "ui/widgets/edits/MEditDocument.h"
#include "ui/widgets/edits/MEditRows.h"

#include <memory>

class MKeyboardWindow;
class MMenu;
class MMenuItem;

/// A text that the user changes: one line, unless it is told otherwise. What the text can be, and where a cursor
/// stands in it, is told at `MEditDocument`; indices are in units of UTF-16.
///
/// When the user has changed the text, `OnString` and then `ExecuteOnChange` are raised. Enter in a single line
/// raises `Change::Committed`, or goes on to the window if nobody listens to that. As long as there is no text,
/// `infoText` stands in its place, quieter.
///
/// Several lines that are read-only show no cursor: the keys that would move it scroll. With Shift they select,
/// from the cursor on where that is seen, else from the first row that is.
class MEdit : public MControl, public MTimer {
public:
    explicit MEdit(MControl* parent = nullptr, const MString& name = MString());
    ~MEdit() override;

    /// Raises nothing, and cannot be undone.
    void SetText(const MString& text);
    [[nodiscard]] MString GetText() const { return document.GetText().GetText(); }
    [[nodiscard]] int32_t GetLength() const { return document.GetLength(); }
    [[nodiscard]] MEvent<MOnStringParams>& OnString() { return stringEvent; }

    void SelectAll() { SetSelection(0, GetLength()); }
    /// The cursor comes to `end`, which may lie before `start`. Both are cut to the text.
    void SetSelection(int32_t start, int32_t end);
    [[nodiscard]] MTextRange GetSelection() const { return document.GetSelection(); }
    [[nodiscard]] MString GetSelectedText() const { return document.GetSelectedText(); }
    [[nodiscard]] int32_t GetCursor() const { return document.GetCursor(); }

    // What a user does. Nothing happens to a text that is read-only.

    /// Replaces what is selected.
    void Insert(const MString& text);
    void Clear();
    void Undo();
    void Redo();
    void Copy() const;
    void Cut();
    void Paste();

    void SetReadOnly(bool newIsReadOnly);
    [[nodiscard]] bool IsReadOnly() const { return isReadOnly; }
    void SetMaximumLength(int32_t newLength) { document.SetMaximumLength(newLength); }
    /// What a user may type; null for everything. Not owned.
    void SetFilter(const MCharFilter::Interface* newFilter) { document.filter = newFilter; }
    /// Shown in place of every character, as for passwords, which then cannot be copied; 0 for none.
    void SetShowChar(char16_t character);
    void SetCenterText(bool newIsCentered);
    /// Whether what is selected is marked also while the keyboard is elsewhere.
    void SetSelectionShown(bool newIsShown);
    void SetMultiLine(bool isMultiLine);
    [[nodiscard]] bool IsMultiLine() const { return document.IsMultiLine(); }
    /// Whether lines that are too long go on in the next row. Of several lines only.
    void SetWrapLines(bool newIsWrapping);

    /// Takes "wraplines", "readonly", "multiline", "centertext", "maxlength", "text", "cursorpos", "showchar",
    /// "selectionstart", "selectionend", "filter" (one of "letters", "alphastrict", "alpha", "integer",
    /// "integerhexa" and "float") and "float".
    void LoadFromXml(MXMLItem& item) override;
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    [[nodiscard]] MFlexibility GetFlexibility() override;
    void OnSizeChanged(MPoint newSize) override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;
    [[nodiscard]] MStdCursor GetCursorAt(MPoint point) override;
    void OnCaptureLost() override;
    void OnTimer() override;
    /// "text", unless that is a secret.
    void SaveValueState(MXMLItem& item) override;
    void LoadValueState(MXMLItem& item) override;
    void WriteHelpInfo(MXMLItem& item) override;

protected:
    /// Where the text is shown, in own coordinates.
    [[nodiscard]] virtual MRect GetTextRectangle();
    /// What is seen of the text, or how much there is, has changed.
    virtual void OnViewChanged() {}
    /// What the user did has changed the text. Handlers that end the control have done so on return.
    virtual void RaiseChange();

    /// How the text looks in a rectangle of a width.
    [[nodiscard]] MEditLook GetLook(int32_t width);
    /// Breaks the text into rows as far as that has not been done.
    void PrepareRows();
    [[nodiscard]] int32_t GetRowHeight();
    /// What all rows take.
    [[nodiscard]] MPoint GetTextSize();
    [[nodiscard]] MPoint GetScroll() const { return scroll; }
    /// Shows the text from a place on, which is limited.
    void ScrollTo(MPoint newScroll);
    void ScrollRows(int32_t count);
    [[nodiscard]] MEditRows& GetRows() { return rows; }
    [[nodiscard]] bool IsWrapping() const { return isWrapping && IsMultiLine(); }
    /// Whether there is no cursor to be seen.
    [[nodiscard]] bool IsReading() const { return isReadOnly && IsMultiLine(); }

private:
    using Anchor = MEditDocument::Anchor;

    static constexpr int32_t BlinkTime = 530;
    static constexpr int32_t ScrollTime = 50;  ///< between two steps while a drag scrolls
    static constexpr int32_t RowsOfWheel = 3;

    // Of the look (MEditView.cpp). Rectangles are in own coordinates.
    [[nodiscard]] MFont* GetTextFont();
    [[nodiscard]] MRect GetRowRectangle(int32_t row);
    [[nodiscard]] MRect GetCaret();
    [[nodiscard]] int32_t GetIndexAt(MPoint point);
    [[nodiscard]] MPoint GetPlaceOf(int32_t index);
    void OnReplaced(const MEditChange& change);
    void InvalidateSelection(MTextRange before);
    void PaintHint(MDrawer& drawer);
    void PaintRow(MDrawer& drawer, int32_t row, const MRect& clip);
    void ShowCaret();
    void ScrollToCursor();

    // Of what the user does (MEditInput.cpp, MEditKeys.cpp).
    /// `action` returns whether it has changed the text.
    void Edit(const std::function<bool()>& action);
    bool ProcessMouse(const MSystemEvent& event);
    bool ProcessKey(const MSystemEvent& event);
    bool ProcessControlKey(const MSystemEvent& event);
    bool ProcessMove(const MSystemEvent& event);
    bool ProcessScroll(int32_t key);
    [[nodiscard]] int32_t GetRowsOfPage();
    void BringCursorIntoView();
    bool ProcessCharacter(const MSystemEvent& event);
    bool Commit();
    void Remove(int32_t to);
    void MoveCursor(int32_t index, Anchor anchor);
    void MoveByRows(int32_t count, Anchor anchor);
    void DragTo(MPoint point);
    void OpenMenu(MPoint point);
    void OnMenuItem(const MOnItemParams<MMenuItem>& params);

    MEditDocument document;
    MEditRows rows{document.GetText()};
    MEvent<MOnStringParams> stringEvent;
    MPoint scroll;  ///< what of the text lies left of and above the rectangle that shows it
    bool isReadOnly = false;
    bool isCentered = false;
    bool isSelectionShown = false;
    bool isWrapping = false;
    char16_t showChar = 0;
    char16_t highSurrogate = 0;  ///< that waits for its other half
    bool isCaretShown = false;
    bool isFocusKept = false;  ///< it was the window that lost the focus
    bool isDragging = false;
    MPoint dragPoint;
    MTextRange dragWord;          ///< where a drag by words began
    std::unique_ptr<MMenu> menu;  ///< null until it is needed, and so the other one
    std::unique_ptr<MKeyboardWindow> keyboard;
    int32_t wantedX = -1;  ///< in a row, that the cursor keeps on its way up and down; below 0 for its own
};
