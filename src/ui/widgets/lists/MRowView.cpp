#include "ui/widgets/lists/MRowView.h"

#include "foundation/events/MEmulatedLockGuard.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/geometry/MLength.h"
#include "ui/widgets/scrolling/MScrollBar.h"

#include <algorithm>
#include <utility>

namespace {

/// How many rows a list shows at least.
constexpr int32_t MinimalRows = 3;

}  // namespace

MRowView::MRowView(MControl* parent, const MString& name)
    : MControl(parent, name), scrollBar(new MScrollBar(this, "ScrollBar", true)) {
    SetControlType(MControlType::ListBox);
    Set(MControlFlag::UseOverlays, false);
    scrollBar->Set(MControlFlag::OverlayControl);
    scrollBar->Set(MControlFlag::AdaptSize, false);
    scrollBar->Set(MControlFlag::TabStop, false);
    scrollBar->size = {};
    scrollBar->OnChange().Connect(this, &MRowView::OnScrolled);
}

int32_t MRowView::GetMetric(MStyleMetric metric) {
    return GetStyle()->GetMetric(static_cast<int32_t>(metric));
}

void MRowView::GetMinimalContentSize(int32_t& x, int32_t& y) {
    const int32_t height = GetLeastRowHeight();
    x = 4 * height;
    y = std::max(lineCount, MinimalRows) * height;
}

void MRowView::SetColumnCount(int32_t count) {
    columnCount = std::max(count, 1);
    UpdateRows();
}

void MRowView::AdjustRectangles(MRect&, MRect& newClientRect) {
    const MRect whole = newClientRect;
    const int32_t thickness = scrollBar->GetThickness();
    const auto reserve = [&] {
        viewRect = whole;
        if (hasScrollBar) viewRect.right = std::max(whole.right - thickness, whole.left - 1);
        EnsurePlaces();
    };
    reserve();
    if (hasScrollBar != (places.GetTotal() > whole.GetHeight())) {
        hasScrollBar = !hasScrollBar;
        reserve();
    }
    newClientRect = viewRect;
    scrollBar->position = {viewRect.right + 1, whole.top};
    scrollBar->size = hasScrollBar ? MPoint{whole.right - viewRect.right, whole.GetHeight()} : MPoint();
    UpdateScrollBar();
}

void MRowView::UpdateScrollBar() {
    const int32_t height = viewRect.GetHeight();
    scrollBar->SetIncrease(places.GetEstimate());
    scrollBar->Show(0, static_cast<double>(places.GetTotal()), height, static_cast<double>(scrollPlace));
    if (hasScrollBar == (places.GetTotal() > height) || !GetRoot().Is(MControlFlag::LayoutValid)) return;
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        ArrangeChildren();
    }
    NotifySizes();
    Invalidate();
}

void MRowView::OnScrolled(const MOnNotifyParams&) {
    ScrollTo(static_cast<int64_t>(scrollBar->GetPosition()));
}

void MRowView::UpdateRows() {
    if (std::exchange(measuredWidth, -1) >= 0) Invalidate();
}

void MRowView::OnRowsInserted(int32_t row, int32_t count) {
    if (focusedRow >= row) focusedRow += count;
    hoveredRow = -1;
    if (columnCount > 1 || measuredWidth < 0) return UpdateRows();
    const bool isAbove = row < places.GetCount() && places.GetTop(row) < scrollPlace;
    places.Insert(row, count);
    if (isAbove) scrollPlace += int64_t{count} * places.GetEstimate();
    Invalidate();
}

void MRowView::OnRowsRemoved(int32_t row, int32_t count) {
    if (focusedRow >= row + count)
        focusedRow -= count;
    else if (focusedRow >= row)
        focusedRow = std::min(row, GetRowCount() - 1);
    hoveredRow = -1;
    if (columnCount > 1 || measuredWidth < 0) return UpdateRows();
    const int64_t top = places.GetTop(row);
    const int64_t bottom = places.GetTop(row + count);
    places.Remove(row, count);
    scrollPlace -= std::clamp<int64_t>(scrollPlace - top, 0, bottom - top);
    Invalidate();
}

void MRowView::UpdateRow(int32_t row) {
    // Where nobody has looked since rows have changed, all of it will be painted.
    if (row >= 0 && row < GetRowCount() && measuredWidth >= 0) InvalidateRect(GetRowRect(row));
}

void MRowView::SetFocusedRow(int32_t row) {
    if (row == focusedRow) return;
    UpdateRow(std::exchange(focusedRow, row));
    UpdateRow(focusedRow);
}

void MRowView::SetHoveredRow(int32_t row) {
    if (row == hoveredRow) return;
    UpdateRow(std::exchange(hoveredRow, row));
    UpdateRow(hoveredRow);
}

int32_t MRowView::CountLines() {
    const int32_t lines = (GetRowCount() + columnCount - 1) / columnCount;
    return columnCount > 1 ? std::max(lines, lineCount) : lines;
}

MRect MRowView::GetColumnRect(int32_t column) const {
    const auto getFixed = [&](int32_t index) {
        const auto i = static_cast<size_t>(index);
        return i < columnWidths.size() && columnWidths[i] > 0 ? GetStyle()->ScaleX(columnWidths[i]) : 0;
    };
    int32_t fixed = 0;
    int32_t fixedBefore = 0;
    int32_t sharing = 0;
    int32_t sharingBefore = 0;
    for (int32_t i = 0; i < columnCount; ++i) {
        const int32_t width = getFixed(i);
        (width > 0 ? fixed : sharing) += std::max(width, 1);
        if (i < column) (width > 0 ? fixedBefore : sharingBefore) += std::max(width, 1);
    }
    const int64_t rest = std::max(viewRect.GetWidth() - fixed, 0);
    const auto getShare = [&](int32_t count) {
        return sharing > 0 ? static_cast<int32_t>(rest * count / sharing) : 0;
    };
    const int32_t left = fixedBefore + getShare(sharingBefore);
    const int32_t own = getFixed(column);
    const int32_t width = own > 0 ? own : getShare(sharingBefore + 1) - getShare(sharingBefore);
    return MRect::FromSize(viewRect.left + left, viewRect.top, width, viewRect.GetHeight());
}

int64_t MRowView::GetGreatestPlace() {
    return std::max<int64_t>(places.GetTotal() - viewRect.GetHeight(), 0);
}

void MRowView::EnsurePlaces() {
    const int32_t width = viewRect.GetWidth();
    if (measuredWidth == width) return;
    const int32_t lines = CountLines();
    if (viewRect.IsEmpty() || !GetStyle()) {
        if (places.GetCount() != lines) places.Reset(lines, 1);
        return;
    }
    const bool isNew = measuredWidth < 0 || places.GetCount() != lines;
    measuredWidth = width;
    if (isNew) {
        // Most rows are as high as the first one.
        places.Reset(lines, lines > 0 ? MeasureLine(0) : 1);
        hoveredRow = std::min(hoveredRow, GetRowCount() - 1);
        focusedRow = std::min(focusedRow, GetRowCount() - 1);
    } else {
        places.Doubt();
    }
    scrollPlace = std::clamp<int64_t>(scrollPlace, 0, GetGreatestPlace());
    MeasureView(-1);
    if (std::exchange(isFocusWanted, false)) ScrollToRow(focusedRow);
}

int32_t MRowView::MeasureLine(int32_t line) {
    const auto index = static_cast<size_t>(line);
    if (index < lineHeights.size() && lineHeights[index] > 0) return GetStyle()->ScaleY(lineHeights[index]);
    int32_t height = 1;
    for (int32_t column = 0; column < columnCount; ++column) {
        const int32_t row = line + column * CountLines();
        if (row < GetRowCount())
            height = std::max(height, GetItemHeight(row, GetColumnRect(column).GetWidth()));
    }
    return MClampLength(height);
}

void MRowView::MeasureView(int32_t anchor) {
    const int64_t height = viewRect.GetHeight();
    const auto measureFrom = [&](int32_t line) {
        for (; line >= 0 && line < places.GetCount() && places.GetTop(line) < scrollPlace + height; ++line) {
            if (places.IsMeasured(line)) continue;
            const int32_t difference = places.SetHeight(line, MeasureLine(line));
            if (line < anchor) scrollPlace = std::max<int64_t>(scrollPlace + difference, 0);
        }
    };
    measureFrom(places.FindLine(scrollPlace));
    // Lines may be lower than they were taken for, and then others come into view at the end.
    while (scrollPlace > GetGreatestPlace()) {
        scrollPlace = GetGreatestPlace();
        measureFrom(places.FindLine(scrollPlace));
    }
}

int64_t MRowView::GetContentHeight() {
    EnsurePlaces();
    return places.GetTotal();
}

MRect MRowView::GetRowRect(int32_t row) {
    EnsurePlaces();
    if (row < 0 || places.GetCount() == 0) return {};
    const int32_t line = row % places.GetCount();
    MRect rect = GetColumnRect(row / places.GetCount());
    rect.top = MClampPlace(viewRect.top + places.GetTop(line) - scrollPlace);
    rect.bottom = rect.top + places.GetHeight(line) - 1;
    return rect;
}

int32_t MRowView::FindRowAt(MPoint point) {
    EnsurePlaces();
    if (!viewRect.Contains(point)) return -1;
    const int64_t place = point.y - viewRect.top + scrollPlace;
    if (place >= places.GetTotal()) return -1;
    const int32_t line = places.FindLine(place);
    for (int32_t column = 0; column < columnCount; ++column) {
        const MRect rect = GetColumnRect(column);
        const int32_t row = line + column * places.GetCount();
        if (point.x >= rect.left && point.x <= rect.right) return row < GetRowCount() ? row : -1;
    }
    return -1;
}

void MRowView::ScrollTo(int64_t place) {
    EnsurePlaces();
    // What is seen of the rows that stay in the view goes exactly so far.
    Scroll(place, place < scrollPlace ? places.FindLine(scrollPlace) : -1);
}

void MRowView::Scroll(int64_t place, int32_t anchor) {
    const int64_t before = scrollPlace;
    const bool isToEnd = place >= GetGreatestPlace();
    scrollPlace = std::clamp<int64_t>(place, 0, GetGreatestPlace());
    if (scrollPlace == before) return;
    MeasureView(anchor);
    // The end is where the last lines prove to end.
    while (isToEnd && scrollPlace < GetGreatestPlace()) {
        scrollPlace = GetGreatestPlace();
        MeasureView(-1);
    }
    UpdateScrollBar();
    Invalidate();
}

void MRowView::ScrollToRow(int32_t row) {
    EnsurePlaces();
    isFocusWanted = viewRect.IsEmpty() && row == focusedRow;
    if (row < 0 || places.GetCount() == 0 || viewRect.IsEmpty()) return;
    const int32_t line = row % places.GetCount();
    if (!places.IsMeasured(line)) places.SetHeight(line, MeasureLine(line));
    const int64_t top = places.GetTop(line);
    const int64_t bottom = places.GetTop(line + 1);
    const int32_t height = viewRect.GetHeight();
    if (top < scrollPlace || bottom - top > height)
        Scroll(top, -1);
    else if (bottom > scrollPlace + height)
        Scroll(bottom - height, line);
}
