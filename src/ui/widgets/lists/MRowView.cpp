#include "ui/widgets/lists/MRowView.h"

#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/geometry/MLength.h"
#include "ui/image/MBitmap.h"

#include <algorithm>
#include <utility>

namespace {

/// How many rows a list shows at least.
constexpr int32_t MinimalRows = 3;

int32_t GetMetric(MStyle& style, MStyleMetric metric) {
    return style.GetMetric(static_cast<int32_t>(metric));
}

/// A square, or less, in the middle of the left edge of a rectangle.
MRect GetLeftPart(const MRect& rect, MPoint size) {
    return MRect::FromSize(rect.left, rect.top + (rect.GetHeight() - size.y) / 2, size.x, size.y);
}

}  // namespace

MRowView::MRowView(MControl* parent, const MString& name) : MControl(parent, name) {
    SetControlType(MControlType::ListBox);
    Set(MControlFlag::UseOverlays, false);
}

void MRowView::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStyle& style = *GetStyle();
    const int32_t height = GetMetric(style, MStyleMetric::DefaultListBoxItemHeight);
    x = 4 * height;
    y = std::max(lineCount, MinimalRows) * height;
}

void MRowView::AdjustRectangles(MRect&, MRect&) {}

void MRowView::UpdateRows() {
    if (std::exchange(measuredWidth, -1) >= 0) Invalidate();
}

void MRowView::UpdateRow(int32_t row) {
    if (row >= 0 && row < GetRowCount()) InvalidateRect(GetRowRect(row));
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
    const MRect& view = GetViewRect();
    const auto getFixed = [&](int32_t index) {
        const auto i = static_cast<size_t>(index);
        return i < columnWidths.size() && columnWidths[i] > 0 ? GetStyle()->ScaleX(columnWidths[i]) : 0;
    };
    int32_t fixed = 0;
    int32_t sharing = 0;
    int32_t left = 0;
    int32_t sharingBefore = 0;
    for (int32_t i = 0; i < columnCount; ++i) {
        const int32_t width = getFixed(i);
        (i < column ? left : fixed) += width;
        if (width > 0) continue;
        ++sharing;
        if (i < column) ++sharingBefore;
    }
    fixed += left;
    const int64_t rest = std::max(view.GetWidth() - fixed, 0);
    const auto getShare = [&](int32_t count) {
        return sharing > 0 ? static_cast<int32_t>(rest * count / sharing) : 0;
    };
    const int32_t own = getFixed(column);
    const int32_t width = own > 0 ? own : getShare(sharingBefore + 1) - getShare(sharingBefore);
    return MRect::FromSize(view.left + left + getShare(sharingBefore), view.top, width, view.GetHeight());
}

void MRowView::EnsurePlaces() {
    const int32_t width = GetViewRect().GetWidth();
    if (measuredWidth == width || !GetStyle()) return;
    const int32_t lines = CountLines();
    const bool isSameCount = measuredWidth >= 0 && places.GetCount() == lines;
    measuredWidth = width;
    if (isSameCount) {
        places.Doubt();
    } else {
        // Most rows are as high as the first one.
        places.Reset(lines, lines > 0 ? MeasureLine(0) : 0);
        hoveredRow = std::min(hoveredRow, GetRowCount() - 1);
        focusedRow = std::min(focusedRow, GetRowCount() - 1);
    }
    const int64_t greatest = std::max<int64_t>(places.GetTotal() - GetViewRect().GetHeight(), 0);
    scrollPlace = std::clamp<int64_t>(scrollPlace, 0, greatest);
    MeasureView(-1);
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
    const int64_t height = GetViewRect().GetHeight();
    int32_t line = places.FindRow(scrollPlace);
    for (; line >= 0 && line < places.GetCount() && places.GetTop(line) < scrollPlace + height; ++line) {
        if (places.IsMeasured(line)) continue;
        const int32_t difference = places.SetHeight(line, MeasureLine(line));
        if (line < anchor) scrollPlace = std::max<int64_t>(scrollPlace + difference, 0);
    }
    const int64_t greatest = std::max<int64_t>(places.GetTotal() - height, 0);
    if (scrollPlace <= greatest) return;
    // Lines were lower than they were taken for.
    scrollPlace = greatest;
    line = places.FindRow(scrollPlace);
    for (; line >= 0 && line < places.GetCount() && !places.IsMeasured(line); ++line)
        places.SetHeight(line, MeasureLine(line));
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
    rect.top = MClampPlace(GetViewRect().top + places.GetTop(line) - scrollPlace);
    rect.bottom = rect.top + places.GetHeight(line) - 1;
    return rect;
}

int32_t MRowView::FindRowAt(MPoint point) {
    EnsurePlaces();
    if (!GetViewRect().Contains(point)) return -1;
    const int64_t place = point.y - GetViewRect().top + scrollPlace;
    if (place >= places.GetTotal()) return -1;
    const int32_t line = places.FindRow(place);
    for (int32_t column = 0; column < columnCount; ++column) {
        const MRect rect = GetColumnRect(column);
        const int32_t row = line + column * places.GetCount();
        if (point.x >= rect.left && point.x <= rect.right) return row < GetRowCount() ? row : -1;
    }
    return -1;
}

void MRowView::ScrollTo(int64_t place) {
    EnsurePlaces();
    const int64_t greatest = std::max<int64_t>(places.GetTotal() - GetViewRect().GetHeight(), 0);
    place = std::clamp<int64_t>(place, 0, greatest);
    if (place == scrollPlace) return;
    const int32_t anchor = place < scrollPlace ? places.FindRow(scrollPlace) : -1;
    scrollPlace = place;
    MeasureView(anchor);
    Invalidate();
}

void MRowView::ScrollToRow(int32_t row) {
    EnsurePlaces();
    if (row < 0 || places.GetCount() == 0) return;
    const int32_t line = row % places.GetCount();
    if (!places.IsMeasured(line)) places.SetHeight(line, MeasureLine(line));
    const int64_t top = places.GetTop(line);
    const int64_t bottom = top + places.GetHeight(line);
    const int32_t height = GetViewRect().GetHeight();
    if (top < scrollPlace || bottom - top > height)
        ScrollTo(top);
    else if (bottom > scrollPlace + height)
        ScrollTo(bottom - height);
}

uint8_t MRowView::GetRowState(int32_t row) {
    uint8_t state = IsEnabled() && GetRow(row).isEnabled ? MDrawEnabled : MDrawDisabled;
    if (row == focusedRow && HasFocus()) state |= MDrawFocused;
    if (row == hoveredRow && GetRow(row).IsSelectable()) state |= MDrawHighlighted;
    return state;
}

MContentLook MRowView::GetLook(uint8_t drawState) {
    MContentLook look;
    look.font = GetFont();
    look.drawState = drawState;
    look.isInverted = GetStyle()->IsInverted(*this);
    look.alignment = MAlignLeft;
    return look;
}

MRect MRowView::GetCheckBoxRect(int32_t row, const MRect& rect) {
    if (!GetRow(row).hasCheckBox) return {};
    MStyle& style = *GetStyle();
    const MPoint border = style.GetPartSize(*this, MStylePart::ListItemBorder);
    const int32_t size = GetMetric(style, MStyleMetric::ListBoxItemCheckBoxSize);
    return GetLeftPart(rect.Shrunk(border.x, 0), {size, size});
}

MRect MRowView::GetTextRect(int32_t row, const MRect& rect) {
    MStyle& style = *GetStyle();
    const MPoint border = style.GetPartSize(*this, MStylePart::ListItemBorder);
    const int32_t space = GetMetric(style, MStyleMetric::XSpaceInMContent);
    MRect text = rect.Shrunk(border.x, border.y);
    const MRect check = GetCheckBoxRect(row, rect);
    if (!check.IsEmpty()) text.left = check.right + 1 + space;
    if (GetRow(row).icon) text.left += GetMetric(style, MStyleMetric::MaxStdIconSizeX) + space;
    return text;
}

int32_t MRowView::GetItemHeight(int32_t row, int32_t width) {
    MStyle& style = *GetStyle();
    MListBoxItemBaseWithFeatures& item = GetRow(row);
    const MPoint border = style.GetPartSize(*this, MStylePart::ListItemBorder);
    if (item.IsSeparator()) return 2 * border.y + std::max(style.ScaleY(1), 1);
    int32_t height = GetMetric(style, MStyleMetric::DefaultListBoxItemHeight);
    MDrawerUsingStyle<MDrawer> drawer(style, *this);
    const MRect text = GetTextRect(row, MRect::FromSize(0, 0, width, height));
    int32_t inside = item.GetTextSize(drawer, GetLook(MDrawEnabled), std::max(text.GetWidth(), 1)).y;
    if (item.icon) inside = std::max(inside, GetMetric(style, MStyleMetric::MaxStdIconSizeY));
    return std::max(height, inside + 2 * border.y);
}

void MRowView::PaintItem(MDrawer& drawer, int32_t row, const MRect& rect, uint8_t drawState) {
    MStyle& style = *GetStyle();
    MListBoxItemBaseWithFeatures& item = GetRow(row);
    if (item.IsSeparator()) return style.PaintLine(*this, drawer, rect);
    style.PaintListItem(*this, drawer, rect, drawState);
    const MRect check = GetCheckBoxRect(row, rect);
    if (!check.IsEmpty())
        style.PaintCheckMark(*this, drawer, check, MCheckMarkShape::CheckBox, item.check, drawState);
    const MRect text = GetTextRect(row, rect);
    if (const MBitmap* const icon =
            item.icon ? drawer.GetStdIcon(static_cast<int32_t>(*item.icon)) : nullptr) {
        const int32_t space = GetMetric(style, MStyleMetric::XSpaceInMContent);
        const MPoint room{GetMetric(style, MStyleMetric::MaxStdIconSizeX), icon->GetHeight()};
        MRect place = GetLeftPart(text, room).Shifted({-room.x - space, 0});
        place.left += (room.x - icon->GetWidth()) / 2;
        const uint8_t alpha = drawState & MDrawEnabled ? 255 : style.GetDisabledAlpha(*this);
        drawer.BitBltWhole(*icon, place.GetTopLeft(), alpha, MDrawMode::Overlay);
    }
    item.PaintText(drawer, text, GetLook(drawState));
}

void MRowView::PaintContent(MDrawer& drawer) {
    EnsurePlaces();
    const MRect clip = drawer.GetClip();
    const MRect view = GetViewRect().Intersected(clip);
    if (view.IsEmpty() || places.GetCount() == 0) return;
    drawer.SetClip(view);
    int32_t line = places.FindRow(scrollPlace + view.top - GetViewRect().top);
    for (; line < places.GetCount(); ++line) {
        for (int32_t column = 0; column < columnCount; ++column) {
            const int32_t row = line + column * places.GetCount();
            const MRect rect = GetRowRect(row);
            if (rect.top > view.bottom) return drawer.SetClip(clip);
            if (row < GetRowCount() && !rect.Intersected(view).IsEmpty())
                PaintItem(drawer, row, rect, GetRowState(row));
        }
    }
    drawer.SetClip(clip);
}
