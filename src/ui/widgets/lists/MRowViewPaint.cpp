#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/drawing/MClipScope.h"
#include "ui/widgets/content/MContents.h"
#include "ui/widgets/lists/MRowView.h"

#include <algorithm>

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

MPoint MRowView::GetRowBorder() {
    return GetStyle()->GetPartSize(*this, MStylePart::ListItemBorder);
}

int32_t MRowView::GetLeastRowHeight() {
    return GetMetric(MStyleMetric::DefaultListBoxItemHeight);
}

int32_t MRowView::GetCheckBoxSize() {
    return GetMetric(MStyleMetric::ListBoxItemCheckBoxSize);
}

MRect MRowView::GetCheckBoxRect(int32_t row, const MRect& rect) {
    if (!GetRow(row).hasCheckBox) return {};
    const int32_t size = GetCheckBoxSize();
    MRect inside = rect.Shrunk(GetRowBorder().x, 0);
    inside.left += GetIndent(row);
    return MAlignInside(inside, {size, size}, MAlignLeft);
}

MRect MRowView::GetTextRect(int32_t row, const MRect& rect) {
    const MPoint border = GetRowBorder();
    const int32_t space = GetMetric(MStyleMetric::XSpaceInMContent);
    const MRect check = GetCheckBoxRect(row, rect);
    MRect text = rect.Shrunk(border.x, border.y);
    text.left += GetIndent(row);
    if (!check.IsEmpty()) text.left = check.right + 1 + space;
    if (GetRow(row).icon) text.left += GetMetric(MStyleMetric::MaxStdIconSizeX) + space;
    return text;
}

int32_t MRowView::GetItemHeight(int32_t row, int32_t width) {
    MStyle& style = *GetStyle();
    MListBoxItemBaseWithFeatures& item = GetRow(row);
    const MPoint border = GetRowBorder();
    if (item.IsSeparator()) return 2 * border.y + std::max(style.ScaleY(1), 1);
    MDrawerUsingStyle<MDrawer> drawer(style, *this);
    const MRect text = GetTextRect(row, MRect::FromSize(0, 0, width, 2 * border.y + 1));
    int32_t inside = item.GetTextSize(drawer, GetLook(MDrawEnabled), std::max(text.GetWidth(), 1)).y;
    if (item.icon) inside = std::max(inside, GetMetric(MStyleMetric::MaxStdIconSizeY));
    return std::max(GetLeastRowHeight(), inside + 2 * border.y);
}

void MRowView::PaintItem(MDrawer& drawer, int32_t row, const MRect& rect, uint8_t drawState) {
    MStyle& style = *GetStyle();
    MListBoxItemBaseWithFeatures& item = GetRow(row);
    if (item.IsSeparator()) return style.PaintLine(*this, drawer, rect);
    style.PaintListItem(*this, drawer, rect, drawState);
    const MRect check = GetCheckBoxRect(row, rect);
    if (!check.IsEmpty())
        style.PaintCheckMark(*this, drawer, check, MCheckMarkShape::RowCheckBox, item.check, drawState);
    const MContentLook look = GetLook(drawState);
    const MRect text = GetTextRect(row, rect);
    if (item.icon) {
        MRect place = text;
        place.right = text.left - GetMetric(MStyleMetric::XSpaceInMContent) - 1;
        place.left = place.right - GetMetric(MStyleMetric::MaxStdIconSizeX) + 1;
        MContentLook iconLook = look;
        iconLook.alignment = MAlignCenter;
        MContentIcon(*item.icon).Paint(drawer, place, iconLook);
    }
    if (text.GetWidth() > 0) item.PaintText(drawer, text, look);
}

void MRowView::PaintContent(MDrawer& drawer) {
    EnsurePlaces();
    MeasureView(-1);
    UpdateScrollBar();
    MClipScope clip(drawer);
    if (clip.Intersect(viewRect) || places.GetCount() == 0) return;
    const MRect view = drawer.GetClip();
    int32_t line = places.FindLine(scrollPlace + view.top - viewRect.top);
    for (; line < places.GetCount() && GetRowRect(line).top <= view.bottom; ++line) {
        for (int32_t row = line; row < GetRowCount(); row += places.GetCount()) {
            const MRect rect = GetRowRect(row);
            if (!rect.Intersected(view).IsEmpty()) PaintItem(drawer, row, rect, GetRowState(row));
        }
    }
}
