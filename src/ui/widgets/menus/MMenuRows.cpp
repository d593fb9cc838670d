#include "ui/widgets/menus/MMenuRows.h"

#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/control/windows/MWindows.h"
#include "ui/widgets/content/MContents.h"
#include "ui/widgets/menus/MMenuBase.h"
#include "ui/widgets/scrolling/MScrollBar.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

/// How far the mouse has to go to mean it, at 100 percent.
constexpr int32_t MoveDistance = 4;

}  // namespace

MMenuRows::MMenuRows(MMenuBase& menu) : MRowView(&menu), menu(menu) {
    SetControlType(MControlType::Empty);
    Set(MControlFlag::TakesMouseWhenInactive);
    GetScrollBar().Set(MControlFlag::TakesMouseWhenInactive);
}

void MMenuRows::Restart() {
    UpdateRows();
    SetFocusedRow(-1);
    ScrollTo(0);
    hasMouseMoved = false;
    pressedKey = 0;
    if (MWindows* const windows = MWindows::GetInstance())
        firstPoint = windows->GetSystem().GetCursorPosition();
}

void MMenuRows::Focus(int32_t row) {
    GoTo(row, MModifierNone);
    ScrollToRow(row);
}

int32_t MMenuRows::GetRowCount() {
    return menu.GetItemCount();
}

MMenuItemBaseWithFeatures& MMenuRows::GetRow(int32_t row) {
    return menu.GetItemFeatures(row);
}

MPoint MMenuRows::GetRowBorder() {
    return GetStyle()->GetPartSize(*this, MStylePart::MenuItemBorder);
}

void MMenuRows::UpdateMargins() {
    MDrawerUsingStyle<MDrawer> drawer(*GetStyle(), *this);
    const int32_t icon = GetMetric(MStyleMetric::MaxStdIconSizeX);
    margins = {GetMetric(MStyleMetric::XSpaceInMContent)};
    for (int32_t row = 0; row < GetRowCount(); ++row) {
        const MMenuItemBaseWithFeatures& item = GetRow(row);
        if (item.icon || item.check != 0) margins.mark = std::max(margins.mark, icon);
        if (item.hasCheckBox)
            margins.mark = std::max(margins.mark, GetStyle()->GetPartSize(*this, MStylePart::CheckMark).x);
        if (item.subMenu) margins.arrow = icon;
        margins.shortcut =
            std::max(margins.shortcut, MContentText(item.shortcut).GetSize(drawer, GetLook(MDrawEnabled)).x);
    }
}

void MMenuRows::GetMinimalContentSize(int32_t& x, int32_t& y) {
    UpdateMargins();
    MDrawerUsingStyle<MDrawer> drawer(*GetStyle(), *this);
    const MRect probe = MRect::FromSize(0, 0, 1000, 1);
    int32_t text = 0;
    int32_t height = 0;
    for (int32_t row = 0; row < GetRowCount(); ++row) {
        text = std::max(text, GetRow(row).GetTextSize(drawer, GetLook(MDrawEnabled), probe.GetWidth()).x);
        height += GetItemHeight(row, probe.GetWidth());
    }
    const int32_t beside = probe.GetWidth() - GetTextRect(0, probe).GetWidth();
    const MRect room = menu.GetRoom();
    const MPoint frame = GetStyle()->ConvertToWindow(menu, {});
    x = std::min(std::max(text + beside, menu.minimalWidth - frame.x), room.GetWidth() - frame.x);
    y = std::min(height, room.GetHeight() - frame.y);
}

int32_t MMenuRows::GetItemHeight(int32_t row, int32_t) {
    MListBoxItemBaseWithFeatures& item = GetRow(row);
    const int32_t borders = 2 * GetRowBorder().y;
    if (item.IsSeparator()) return borders + std::max(GetStyle()->ScaleY(1), 1);
    MDrawerUsingStyle<MDrawer> drawer(*GetStyle(), *this);
    const int32_t icon = margins.mark > 0 ? GetMetric(MStyleMetric::MaxStdIconSizeY) : 0;
    return std::max(item.GetTextSize(drawer, GetLook(MDrawEnabled), Unlimited).y, icon) + borders;
}

MRect MMenuRows::GetTextRect(int32_t, const MRect& rect) {
    const MPoint border = GetRowBorder();
    MRect text = rect.Shrunk(border.x, border.y);
    if (margins.mark > 0) text.left += margins.mark + margins.space;
    // What stands behind the texts keeps a clear distance.
    if (margins.shortcut > 0) text.right -= margins.shortcut + 4 * margins.space;
    if (margins.arrow > 0) text.right -= margins.arrow + margins.space;
    return text;
}

uint8_t MMenuRows::GetRowState(int32_t row) {
    uint8_t state = GetRow(row).isEnabled ? MDrawEnabled : MDrawDisabled;
    if (row == GetFocusedRow() && GetRow(row).IsSelectable()) state |= MDrawFocused | MDrawHighlighted;
    if (row == menu.openRow) state |= MDrawClicked;
    return state;
}

void MMenuRows::PaintItem(MDrawer& drawer, int32_t row, const MRect& rect, uint8_t drawState) {
    MStyle& style = *GetStyle();
    MMenuItemBaseWithFeatures& item = GetRow(row);
    if (item.IsSeparator()) return style.PaintLine(*this, drawer, rect);
    style.PaintListItem(*this, drawer, rect, drawState);
    MContentLook look = GetLook(drawState);
    item.PaintText(drawer, GetTextRect(row, rect), look);

    const MRect inside = rect.Shrunk(GetRowBorder().x, 0);
    const MRect mark = MRect::FromSize(inside.left, rect.top, margins.mark, rect.GetHeight());
    MRect behind =
        MRect::FromSize(inside.right - margins.arrow + 1, rect.top, margins.arrow, rect.GetHeight());
    look.alignment = MAlignCenter;
    const MPoint box = style.GetPartSize(*this, MStylePart::CheckMark);
    if (item.hasCheckBox)
        style.PaintCheckMark(*this, drawer, MAlignInside(mark, box, MAlignCenter), MCheckMarkShape::CheckBox,
                             item.check, drawState);
    else if (item.icon || item.check != 0)
        MContentIcon(item.check != 0 ? MStdIcon::OK : *item.icon).Paint(drawer, mark, look);
    if (item.subMenu) MContentIcon(MStdIcon::RightTriangle).Paint(drawer, behind, look);

    behind.right = behind.left - (margins.arrow > 0 ? margins.space : 0) - 1;
    behind.left = behind.right - margins.shortcut + 1;
    look.alignment = MAlignRight;
    MContentText(item.shortcut).Paint(drawer, behind, look);
}

void MMenuRows::SetHoveredRow(int32_t row) {
    MRowView::SetHoveredRow(row);
    if (!hasMouseMoved) return;
    // Who leaves the menu for its sub-menu stays on the item.
    if (row < 0 && menu.openRow >= 0) return;
    if (row == GetFocusedRow()) return;
    SetFocusedRow(row);
    menu.OnRowChanged();
}

void MMenuRows::GoTo(int32_t row, MKeyModifiers) {
    SetFocusedRow(row);
    menu.OnRowChanged();
}

bool MMenuRows::PreviewEvent(MControl* target, const MSystemEvent& event) {
    const MControlRef self(this);
    if (event.type == MEventType::MouseMove) {
        const MPoint way = GetScreenPoint(GetOwnPoint(event.point)) - firstPoint;
        const int32_t distance = GetStyle()->ScaleX(MoveDistance);
        if (std::abs(way.x) >= distance || std::abs(way.y) >= distance) hasMouseMoved = true;
        menu.OnEntered();
    } else if (event.IsPress()) {
        hasMouseMoved = true;
    } else if (event.IsRelease() && hasMouseMoved) {
        // The button may have been pressed before the menu was open.
        const int32_t row = FindRowAt(GetOwnPoint(event.point));
        if (MRowView::PreviewEvent(target, event) || !self) return true;
        ReleaseCapture();
        menu.Choose(row);
        return !self || !menu.IsOpen();
    }
    return MRowView::PreviewEvent(target, event);
}

bool MMenuRows::ProcessKey(int32_t key, MKeyModifiers modifiers) {
    switch (key) {
    case MKeyUp:
    case MKeyDown: {
        const int32_t step = key == MKeyUp ? -1 : 1;
        const int32_t count = GetRowCount();
        const int32_t from = GetFocusedRow() < 0 && step < 0 ? count : GetFocusedRow();
        int32_t row = FindSelectable(from, step);
        if (row < 0) row = FindSelectable(step < 0 ? count : -1, step);
        if (row < 0) return true;
        Focus(row);
        return true;
    }
    case MKeyLeft: menu.OnKeyLeft(); return true;
    case MKeyRight: menu.OnKeyRight(); return true;
    case MKeyEnter:
    case MKeySpace: pressedKey = key; return true;
    case MKeyEscape: menu.parentMenu ? menu.parentMenu->CloseSubMenu() : menu.Close(); return true;
    case MKeyAlt:
    case MKeyF10: menu.CloseAll(); return true;
    case MKeyTab: return true;
    default: return ProcessMove(key, modifiers);
    }
}

bool MMenuRows::ProcessEvent(const MSystemEvent& event) {
    if (event.type == MEventType::KeyDown) {
        const bool isTyped = event.key == MKeySpace && IsTyping();
        return isTyped || ProcessKey(event.key, event.modifiers);
    }
    if (event.type == MEventType::KeyUp) {
        if (event.key != 0 && std::exchange(pressedKey, 0) == event.key) {
            const int32_t row = GetFocusedRow();
            MMenuBase* const subMenu = row >= 0 ? GetRow(row).subMenu.get() : nullptr;
            subMenu ? menu.OnKeyRight() : menu.Choose(row);
        }
        return true;
    }
    return event.IsPress() || MRowView::ProcessEvent(event);
}
