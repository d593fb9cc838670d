#pragma once

#include "ui/control/MControl.h"
#include "ui/widgets/lists/MListBoxItemBaseWithFeatures.h"
#include "ui/widgets/lists/MRowPlaces.h"
#include "ui/widgets/lists/MTypeAhead.h"

#include <cstdint>
#include <vector>

class MScrollBar;
enum class MStyleMetric : int32_t;

/// Rows below one another, one of which the keyboard works on: what lists, trees and menus have in common. Rows
/// have numbers from 0 on; -1 is none.
///
/// Whoever derives has the rows and says when they are others. However many there are, painting and scrolling
/// touch those alone that can be seen: heights are asked for when a row comes into view.
///
/// With several columns the rows fill one column after the other; what stands side by side is a line. There are
/// as many lines as it takes, and not less than `lineCount`.
class MRowView : public MControl {
public:
    explicit MRowView(MControl* parent = nullptr, const MString& name = MString());

    void GetMinimalContentSize(int32_t& x, int32_t& y) override;
    [[nodiscard]] MFlexibility GetFlexibility() override { return MFlexibleBoth; }
    void AdjustRectangles(MRect& newWindowRect, MRect& newClientRect) override;
    void PaintContent(MDrawer& drawer) override;
    bool ProcessEvent(const MSystemEvent& event) override;

    // The rows, which whoever derives has.
    [[nodiscard]] virtual int32_t GetRowCount() = 0;
    [[nodiscard]] virtual MListBoxItemBaseWithFeatures& GetRow(int32_t row) = 0;
    /// With its borders, at a width.
    [[nodiscard]] virtual int32_t GetItemHeight(int32_t row, int32_t width);
    /// `drawState`: of `MDrawState`, as `MStyle` tells for rows.
    virtual void PaintItem(MDrawer& drawer, int32_t row, const MRect& rect, uint8_t drawState);

    /// A row looks different.
    void UpdateRow(int32_t row);
    /// There are other rows than before, or other heights: all is measured again. As after the operations below,
    /// nothing is done until somebody looks.
    void UpdateRows();
    /// Some rows have come or gone; what is seen of the others stays where it is.
    void OnRowsInserted(int32_t row, int32_t count);
    void OnRowsRemoved(int32_t row, int32_t count);

    [[nodiscard]] int32_t GetFocusedRow() const { return focusedRow; }
    /// Without scrolling to it.
    void SetFocusedRow(int32_t row);
    [[nodiscard]] int32_t GetHoveredRow() const { return hoveredRow; }

    // Places are in pixels, rectangles and points in own coordinates.
    /// Where rows are seen.
    [[nodiscard]] const MRect& GetViewRect() const { return viewRect; }
    [[nodiscard]] MRect GetRowRect(int32_t row);
    [[nodiscard]] int32_t FindRowAt(MPoint point);
    /// The lines begin so far above the view.
    [[nodiscard]] int64_t GetScrollPlace() const { return scrollPlace; }
    void ScrollTo(int64_t place);
    /// Scrolls as little as it takes to see all of a row.
    void ScrollToRow(int32_t row);
    /// Of all lines, as far as they are known.
    [[nodiscard]] int64_t GetContentHeight();

    /// What stands side by side; at least 1.
    void SetColumnCount(int32_t count);

protected:
    /// The user has gone to a row by the keyboard.
    virtual void GoTo(int32_t row, MKeyModifiers modifiers) = 0;
    [[nodiscard]] virtual uint8_t GetRowState(int32_t row);
    /// The one after the row, or before it, that the user can choose, `step` 1 or -1; -1 if there is none.
    [[nodiscard]] int32_t FindSelectable(int32_t row, int32_t step);
    /// Arrows, pages, Home and End; returns whether the key is one of them.
    bool ProcessMove(int32_t key, MKeyModifiers modifiers);
    /// A letter was typed.
    bool ProcessCharacter(char16_t unit, MKeyModifiers modifiers);
    /// A turn of the wheel, which scrolls unless it moves something else.
    virtual bool ProcessWheel(int32_t steps) { return ScrollBySteps(steps); }
    /// Returns whether anything has moved.
    bool ScrollBySteps(int32_t steps);
    /// Whether letters are being typed, to which a space belongs.
    [[nodiscard]] bool IsTyping() const;
    virtual void SetHoveredRow(int32_t row);
    [[nodiscard]] MScrollBar& GetScrollBar() const { return *scrollBar; }

    /// How the text of a row is painted and measured.
    [[nodiscard]] MContentLook GetLook(uint8_t drawState);
    /// A row without its borders and what stands before its text.
    [[nodiscard]] virtual MRect GetTextRect(int32_t row, const MRect& rect);
    /// Of a row's check box, empty without one.
    [[nodiscard]] virtual MRect GetCheckBoxRect(int32_t row, const MRect& rect);
    /// How far what is in a row is moved to the right.
    [[nodiscard]] virtual int32_t GetIndent(int32_t) { return 0; }
    /// Between the edge of a row and what is in it.
    [[nodiscard]] virtual MPoint GetRowBorder();
    /// How high a row is at least, and how large a check box is, in pixels.
    [[nodiscard]] virtual int32_t GetLeastRowHeight();
    [[nodiscard]] virtual int32_t GetCheckBoxSize();
    [[nodiscard]] int32_t GetMetric(MStyleMetric metric);

    /// How many rows a step of the wheel scrolls.
    static constexpr int32_t WheelRows = 3;

    int32_t lineCount = 0;
    std::vector<int32_t> columnWidths;  ///< at 100 percent; columns beyond and of 0 share what is left
    std::vector<int32_t> lineHeights;   ///< at 100 percent; lines beyond and of 0 are as high as their rows

private:
    [[nodiscard]] int32_t CountLines();
    /// From the left to the right edge of a column, as high as the view.
    [[nodiscard]] MRect GetColumnRect(int32_t column) const;
    /// Sees to it that there is a place for each line.
    void EnsurePlaces();
    [[nodiscard]] int32_t MeasureLine(int32_t line);
    /// Measures the lines that are seen. What is above `anchor` moves up when it proves to be higher.
    void MeasureView(int32_t anchor);
    /// That the view can be scrolled to.
    [[nodiscard]] int64_t GetGreatestPlace();
    /// The lines above `anchor` keep their distance to it when they prove to be higher.
    void Scroll(int64_t place, int32_t anchor);
    void UpdateScrollBar();
    void OnScrolled(const MOnNotifyParams& params);
    /// The row that the user can choose about a page further on.
    [[nodiscard]] int32_t FindPage(int32_t step);

    MScrollBar* const scrollBar;  ///< a child; without size when all is seen
    MRect viewRect;
    MRowPlaces places;
    MTypeAhead typeAhead;
    int64_t scrollPlace = 0;
    int32_t columnCount = 1;
    int32_t measuredWidth = -1;  ///< of the view, for which heights were asked; below 0 when rows are others
    int32_t focusedRow = -1;
    int32_t hoveredRow = -1;
    bool hasScrollBar = false;
    bool isFocusWanted = false;  ///< is to be scrolled to as soon as there is a view
};
