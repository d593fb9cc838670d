// How an edit shows its text: rows, scrolling, cursor and selection.

#include "foundation/text/MUnicode.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/drawing/MDrawer.h"
#include "ui/text/MFont.h"
#include "ui/text/MTextLayout.h"
#include "ui/widgets/edits/MEdit.h"

#include <algorithm>

MFont* MEdit::GetTextFont() {
    MColor unused;
    MStyle* const style = GetStyle();
    return style ? style->GetFont(GetFont(), 0, false, GetDrawState(), unused) : nullptr;
}

MRect MEdit::GetTextRectangle() {
    MStyle* const style = GetStyle();
    if (!style) return {};
    const auto getMetric = [&](MStyleMetric metric) {
        return style->GetMetric(static_cast<int32_t>(metric));
    };
    return clientRect.Shrunk(getMetric(MStyleMetric::XBorderInMContent),
                             getMetric(MStyleMetric::YBorderInMContent));
}

MEditLook MEdit::GetLook(int32_t width) {
    MFont* const font = GetTextFont();
    if (!font) return {};
    // The caret has room behind the last character.
    const int32_t room = std::max(1, width - GetStyle()->ScaleX(1));
    return {font, font->GetRevision(), IsWrapping() ? room : 0, showChar};
}

void MEdit::PrepareRows() {
    const MEditLook look = GetLook(GetTextRectangle().GetWidth());
    if (look.font) (void)rows.SetLook(look);
}

int32_t MEdit::GetRowHeight() {
    MFont* const font = GetTextFont();
    return font ? std::max({1, font->GetLineHeight(), font->GetAscent() + font->GetDescent()}) : 1;
}

MPoint MEdit::GetTextSize() {
    PrepareRows();
    return {rows.GetLook().wrapWidth > 0 ? rows.GetLook().wrapWidth : rows.GetWidth(),
            MClampLength(int64_t{rows.GetCount()} * GetRowHeight())};
}

void MEdit::GetMinimalContentSize(int32_t& x, int32_t& y) {
    constexpr int32_t RowsOfSeveralLines = 3;
    x = 0;
    y = GetRowHeight() * (IsMultiLine() ? RowsOfSeveralLines : 1);
    if (MStyle* const style = GetStyle())
        y += 2 * style->GetMetric(static_cast<int32_t>(MStyleMetric::YBorderInMContent));
}

MFlexibility MEdit::GetFlexibility() {
    return IsMultiLine() ? MFlexibleBoth : MFlexibleX;
}

void MEdit::OnSizeChanged(MPoint) {
    HasFocus() && !IsReading() ? ScrollToCursor() : ScrollTo(scroll);
}

MRect MEdit::GetRowRectangle(int32_t row) {
    const MRect area = GetTextRectangle();
    const int32_t height = GetRowHeight();
    int32_t top = area.top;
    if (!IsMultiLine()) top += (area.GetHeight() - height + 1) / 2;
    const int32_t room = area.GetWidth() - GetStyle()->ScaleX(1);
    int32_t left = area.left - scroll.x;
    if (isCentered) left += std::max(0, room - rows.GetX(row, rows.GetEnd(row))) / 2;
    top = MClampPlace(int64_t{top} - scroll.y + int64_t{row} * height);
    return {left, top, area.right, top + height - 1};
}

MPoint MEdit::GetPlaceOf(int32_t index) {
    PrepareRows();
    const int32_t row = rows.GetRowOf(index);
    const MRect rect = GetRowRectangle(row);
    return {MAddPixels(rect.left, rows.GetX(row, index)), rect.top};
}

int32_t MEdit::GetIndexAt(MPoint point) {
    PrepareRows();
    if (!rows.GetLook().font) return 0;
    const MRect first = GetRowRectangle(0);
    const int32_t above = point.y - first.top;
    const int32_t row = above < 0 ? 0 : std::min(above / GetRowHeight(), rows.GetCount() - 1);
    return rows.GetIndexAt(row, point.x - GetRowRectangle(row).left);
}

MRect MEdit::GetCaret() {
    MPoint place = GetPlaceOf(GetCursor());
    const MRect area = GetTextRectangle();
    const int32_t width = std::max(1, GetStyle()->ScaleX(1));
    // Behind blanks that hang over the edge of a row it stays inside.
    place.x = std::min(place.x, area.right - width + 1);
    return MRect::FromSize(place.x, place.y, width, GetRowHeight());
}

void MEdit::ScrollTo(MPoint newScroll) {
    const MRect area = GetTextRectangle();
    const MPoint text = GetTextSize();
    const auto limit = [](int32_t place, int32_t hidden) {
        return std::clamp(place, 0, std::max(0, hidden));
    };
    newScroll.x =
        limit(newScroll.x, text.x + std::max(1, GetStyle() ? GetStyle()->ScaleX(1) : 1) - area.GetWidth());
    newScroll.y = IsMultiLine() ? limit(newScroll.y, text.y - area.GetHeight()) : 0;
    if (newScroll != scroll) {
        scroll = newScroll;
        Invalidate();
    }
    OnViewChanged();
}

void MEdit::ScrollRows(int32_t count) {
    ScrollTo({scroll.x, MClampPlace(int64_t{scroll.y} + int64_t{count} * GetRowHeight())});
}

void MEdit::ScrollToCursor() {
    const MRect area = GetTextRectangle();
    if (area.IsEmpty()) return;
    const MRect caret = GetCaret();
    MPoint wanted = scroll;
    for (const MAxis axis : {MAxis::X, MAxis::Y}) {
        if (caret.GetHigh(axis) > area.GetHigh(axis))
            wanted[axis] += caret.GetHigh(axis) - area.GetHigh(axis);
        if (caret.GetLow(axis) < area.GetLow(axis)) wanted[axis] += caret.GetLow(axis) - area.GetLow(axis);
    }
    ScrollTo(wanted);
}

void MEdit::OnReplaced(const MEditChange& change) {
    const int32_t oldCount = rows.GetCount();
    MFont* const font = GetTextFont();
    // Where nobody has looked yet, or the style has other fonts now, all is broken when somebody looks.
    if (!font || rows.GetLook().font != font || rows.GetLook().revision != font->GetRevision())
        return rows.Forget();
    const MEditRows::Changed changed = rows.Update(change.start, change.removed, change.inserted);
    MRect dirty = GetRowRectangle(std::max(0, changed.first));
    dirty.left = clientRect.left;
    dirty.bottom = rows.GetCount() == oldCount
                       ? MClampPlace(dirty.top + int64_t{changed.added} * GetRowHeight() - 1)
                       : clientRect.bottom;
    InvalidateRect(dirty);
    OnViewChanged();
}

void MEdit::InvalidateSelection(MTextRange before) {
    const MTextRange now = GetSelection();
    if (before == now || !GetStyle()) return;
    const int32_t first = GetPlaceOf(std::min(before.start, now.start)).y;
    const int32_t last = GetPlaceOf(std::max(before.end, now.end)).y;
    InvalidateRect({clientRect.left, first, clientRect.right, last + GetRowHeight() - 1});
}

void MEdit::ShowCaret() {
    const bool isBlinking = HasFocus() && IsEnabled() && !IsReading();
    isCaretShown = isBlinking;
    isBlinking ? StartTimer(BlinkTime) : StopTimer();
    if (GetStyle()) InvalidateRect(GetCaret());
}

void MEdit::PaintContent(MDrawer& drawer) {
    PrepareRows();
    if (!rows.GetLook().font) return;
    const MRect clip = drawer.GetClip();
    MRect area = GetTextRectangle();
    // A single line is seen whole, also in an edit that is lower than its frame wants.
    if (!IsMultiLine()) {
        area.top = windowRect.top;
        area.bottom = windowRect.bottom;
    }
    area = area.Intersected(clip);
    if (area.IsEmpty()) return;
    drawer.SetClip(area);
    const int32_t height = GetRowHeight();
    const int32_t top = GetRowRectangle(0).top;
    const int32_t first = std::max(0, (area.top - top) / height);
    const int32_t last = std::min(rows.GetCount() - 1, (area.bottom - top) / height);
    for (int32_t row = first; row <= last; ++row) PaintRow(drawer, row, area);
    if (GetLength() == 0 && !infoText.IsEmpty()) PaintHint(drawer);
    if (isCaretShown) {
        MColor color;
        (void)drawer.GetFont(GetFont(), 0, drawer.inverted, GetDrawState(), color);
        drawer.FillRectangle(GetCaret(), color, MDrawMode::Copy);
    }
    drawer.SetClip(clip);
}

void MEdit::PaintHint(MDrawer& drawer) {
    constexpr int32_t Strength = 178;  // as all that is secondary
    MColor color;
    MFont* const font = drawer.GetFont(GetFont(), 0, drawer.inverted, GetDrawState(), color);
    color.alpha = static_cast<uint8_t>(color.alpha * Strength / 255);
    const MTextAlignment horizontal = isCentered ? MTextCenter : MTextLeft;
    MRect rect = GetRowRectangle(0);
    if (isCentered) rect.left = GetTextRectangle().left;
    drawer.AlignedTextOut(rect, *font, infoText, color, horizontal | MTextTop);
}

void MEdit::PaintRow(MDrawer& drawer, int32_t row, const MRect& clip) {
    const MRect rect = GetRowRectangle(row);
    const int32_t end = rows.GetEnd(row);
    const MTextRange selection = HasFocus() || isSelectionShown ? GetSelection() : MTextRange();
    if (!selection.IsEmpty() && selection.start <= end && selection.end > rows.GetStart(row)) {
        MRect selected = rect;
        selected.left += rows.GetX(row, selection.start);
        selected.right = rect.left + rows.GetX(row, selection.end) - 1;
        // A line feed that is selected shows as a bit of the room behind it.
        const bool hasLineFeed = row + 1 < rows.GetCount() && rows.GetStart(row + 1) > end;
        if (hasLineFeed && selection.end > end) selected.right += GetRowHeight() / 3;
        GetStyle()->PaintSelection(*this, drawer, selected.Intersected(clip), GetDrawState());
    }

    MColor color;
    MColor selectedColor;
    MFont* const font = drawer.GetFont(GetFont(), 0, drawer.inverted, GetDrawState(), color);
    (void)drawer.GetFont(GetFont(), 0, !drawer.inverted, GetDrawState(), selectedColor);
    const int32_t baseline = rect.top + font->GetAscent() + font->GetVerticalShift();
    MEditPen pen(rows.GetLook());
    for (int32_t index = rows.GetStart(row); index < end && rect.left + pen.GetEnd() <= clip.right;) {
        const bool isSelected = index >= selection.start && index < selection.end;
        const MGlyph* const glyph = pen.Take(MTakeCodePoint(document.GetText(), index));
        if (!glyph || !glyph->mask) continue;
        const MPoint point{rect.left + pen.GetOrigin() + glyph->left, baseline - glyph->top};
        if (point.x + glyph->width >= clip.left)
            drawer.PaintGlyph({glyph->mask.get(), point}, isSelected ? selectedColor : color);
    }
}
