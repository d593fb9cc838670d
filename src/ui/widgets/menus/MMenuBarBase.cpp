#include "ui/widgets/menus/MMenuBarBase.h"

#include "ui/control/MControlRoot.h"
#include "ui/control/MDrawerUsingStyle.h"
#include "ui/control/kinds/MStyleMetric.h"
#include "ui/widgets/content/MContents.h"
#include "ui/widgets/content/MHelpUsage.h"

#include <utility>

MMenuBarBase::MMenuBarBase(MControl* parent, const MString& name) : MControl(parent, name) {
    SetControlType(MControlType::MenuBar);
    layoutRatio.y = 0;
}

void MMenuBarBase::AddBarItem(const MString& text, std::unique_ptr<MMenuBase> menu) {
    menu->neighbours = this;
    items.Add(new Item{text, std::move(menu)});
    TouchSizes();
    Invalidate();
}

void MMenuBarBase::SetItemEnabled(int32_t index, bool isEnabled) {
    items[index]->isEnabled = isEnabled;
    Invalidate();
}

int32_t MMenuBarBase::GetItemWidth(const Item& item) {
    MDrawerUsingStyle<MDrawer> drawer(*GetStyle(), *this);
    const MContentLook look{.font = GetFont(), .drawState = MDrawEnabled};
    return MContentText(item.text).GetSize(drawer, look).x +
           2 * GetStyle()->GetPartSize(*this, MStylePart::MenuBarItemBorder).x;
}

MRect MMenuBarBase::GetItemRect(int32_t index) {
    MStyle* const style = GetStyle();
    if (!style) return {};
    MRect rect = clientRect;
    const int32_t overlap = style->GetMetric(static_cast<int32_t>(MStyleMetric::MenuBarOverlapSize));
    rect.left += style->GetMetric(static_cast<int32_t>(MStyleMetric::MenuBarLeftSize));
    for (int32_t i = 0; i < index; ++i) rect.left += GetItemWidth(*items[i]) - overlap;
    rect.right = rect.left + GetItemWidth(*items[index]) - 1;
    return rect;
}

void MMenuBarBase::GetMinimalContentSize(int32_t& x, int32_t& y) {
    MStyle& style = *GetStyle();
    MDrawerUsingStyle<MDrawer> drawer(style, *this);
    const MContentLook look{.font = GetFont(), .drawState = MDrawEnabled};
    y = MContentText("X").GetSize(drawer, look).y +
        2 * style.GetPartSize(*this, MStylePart::MenuBarItemBorder).y;
    x = style.GetMetric(static_cast<int32_t>(MStyleMetric::MenuBarLeftSize)) +
        style.GetMetric(static_cast<int32_t>(MStyleMetric::MenuBarRightSize));
    if (items.IsEmpty()) return;
    const int32_t last = items.GetCount() - 1;
    x = GetItemRect(last).right + 1 - clientRect.left +
        style.GetMetric(static_cast<int32_t>(MStyleMetric::MenuBarRightSize));
}

int32_t MMenuBarBase::FindItemAt(MPoint point) {
    for (int32_t i = 0; i < items.GetCount(); ++i)
        if (GetItemRect(i).Contains(point)) return i;
    return -1;
}

int32_t MMenuBarBase::FindEnabled(int32_t index, int32_t step) const {
    const int32_t count = items.GetCount();
    for (int32_t i = 1; i <= count; ++i) {
        const int32_t other = (index + i * step + count * (i + 1)) % count;
        if (items[other]->isEnabled) return other;
    }
    return -1;
}

void MMenuBarBase::PaintContent(MDrawer& drawer) {
    MStyle& style = *GetStyle();
    for (int32_t i = 0; i < items.GetCount(); ++i) {
        uint8_t state = IsEnabled() && items[i]->isEnabled ? MDrawEnabled : MDrawDisabled;
        if (i == currentItem && state) state |= MDrawHighlighted | (HasFocus() ? MDrawFocused : 0);
        if (i == openItem) state |= MDrawClicked;
        const MRect rect = GetItemRect(i);
        style.PaintMenuBarItem(*this, drawer, rect, state);
        MContentText(items[i]->text)
            .Paint(drawer, rect,
                   {.font = GetFont(), .drawState = state, .isInverted = style.IsInverted(*this)});
    }
}

void MMenuBarBase::SetCurrentItem(int32_t index) {
    if (std::exchange(currentItem, index) != index) Invalidate();
}

void MMenuBarBase::OpenItem(int32_t index) {
    if (index == openItem || index < 0 || !items[index]->isEnabled) return;
    const MControlRef self(this);
    if (openItem >= 0) {
        isChanging = true;
        items[openItem]->menu->Close();
        if (!self) return;
        isChanging = false;
    }
    openItem = index;
    SetCurrentItem(index);
    Invalidate();
    // While a menu has the keyboard, the mouse still goes from item to item.
    Set(MControlFlag::TakesMouseWhenInactive);
    MRect rect = GetItemRect(index);
    rect = rect.Shifted(GetScreenPoint(rect.GetTopLeft()) - rect.GetTopLeft());
    items[index]->menu->Open(*this, rect);
    if (self && !items[index]->menu->IsOpen()) OnMenuClosed();
}

void MMenuBarBase::OnMenuClosed() {
    openItem = -1;
    Set(MControlFlag::TakesMouseWhenInactive, false);
    Invalidate();
    if (isChanging) return;
    SetCurrentItem(-1);
    GiveFocusBack();
}

void MMenuBarBase::OpenByKey(int32_t index) {
    const MControlRef self(this);
    OpenItem(index);
    if (self && openItem == index && index >= 0) items[index]->menu->FocusFirstItem();
}

bool MMenuBarBase::OpenNeighbour(int32_t step) {
    const int32_t index = openItem < 0 ? -1 : FindEnabled(openItem, step);
    if (index < 0) return false;
    OpenByKey(index);
    return true;
}

void MMenuBarBase::GiveFocusBack() {
    const MControlRef before(focusBefore.Get());
    focusBefore.Set(nullptr);
    if (HasFocus() && before) SetFocus(before.Get());
}

void MMenuBarBase::ToggleFocus() {
    if (HasFocus()) {
        SetCurrentItem(-1);
        return GiveFocusBack();
    }
    focusBefore.Set(GetRootState().focusedControl);
    SetFocus();
    SetCurrentItem(FindEnabled(-1, 1));
}

bool MMenuBarBase::PreviewEvent(MControl* target, const MSystemEvent& event) {
    // A press takes the focus before anybody is asked.
    if (event.IsPress() && !HasFocus()) focusBefore.Set(GetRootState().focusedControl);
    return MControl::PreviewEvent(target, event);
}

bool MMenuBarBase::ProcessKey(int32_t key) {
    if (items.IsEmpty()) return false;
    switch (key) {
    case MKeyLeft: SetCurrentItem(FindEnabled(currentItem < 0 ? 0 : currentItem, -1)); return true;
    case MKeyRight: SetCurrentItem(FindEnabled(currentItem, 1)); return true;
    case MKeyHome: SetCurrentItem(FindEnabled(-1, 1)); return true;
    case MKeyEnd: SetCurrentItem(FindEnabled(0, -1)); return true;
    case MKeyDown:
    case MKeyUp:
    case MKeyEnter:
    case MKeySpace: OpenByKey(currentItem < 0 ? FindEnabled(-1, 1) : currentItem); return true;
    case MKeyEscape:
        if (!focusBefore) return false;
        ToggleFocus();
        return true;
    default: return false;
    }
}

bool MMenuBarBase::ProcessEvent(const MSystemEvent& event) {
    const int32_t item = event.HasPosition() ? FindItemAt(GetOwnPoint(event.point)) : -1;
    switch (event.type) {
    case MEventType::LeftDown: {
        const MControlRef self(this);
        if (item >= 0 && item == openItem)
            items[item]->menu->Close();
        else
            OpenItem(item);
        if (self && openItem < 0) GiveFocusBack();
        return true;
    }
    case MEventType::MouseMove:
        if (openItem >= 0)
            OpenItem(item);
        else
            SetCurrentItem(item);
        return true;
    case MEventType::MouseLeave:
        if (openItem < 0 && !HasFocus()) SetCurrentItem(-1);
        return MControl::ProcessEvent(event);
    case MEventType::GotFocus:
        if (currentItem < 0 && !items.IsEmpty()) SetCurrentItem(FindEnabled(-1, 1));
        Invalidate();
        return MControl::ProcessEvent(event);
    case MEventType::LostFocus:
        if (openItem < 0) SetCurrentItem(-1);
        return MControl::ProcessEvent(event);
    case MEventType::KeyDown: return ProcessKey(event.key) || MControl::ProcessEvent(event);
    default: return MControl::ProcessEvent(event);
    }
}

bool MMenuBarBase::ProcessGlobalEvent(const MSystemEvent& event) {
    if (items.IsEmpty()) return false;
    if (event.type == MEventType::KeyUp && event.key == MKeyAlt) {
        if (!std::exchange(isAltAlone, false)) return false;
        ToggleFocus();
        return true;
    }
    if (event.type != MEventType::KeyDown) return false;
    isAltAlone = event.key == MKeyAlt;
    if (event.key == MKeyF10) {
        ToggleFocus();
        return true;
    }
    if (!event.Has(MModifierAlt) || event.key < '0' || event.key > 'Z') return false;
    for (int32_t i = 0; i < items.GetCount(); ++i) {
        const MString& text = items[i]->text;
        if (text.IsEmpty() || text[0].FoldDiacritics().ToUpper() != event.key || !items[i]->isEnabled)
            continue;
        if (!HasFocus()) ToggleFocus();
        OpenByKey(i);
        return true;
    }
    return false;
}

void MMenuBarBase::WriteHelpInfo(MXMLItem& item) {
    MControl::WriteHelpInfo(item);
    constexpr const char* Entries[] = {
        "<control>Left mouse button</control> opens a menu.",
        "<control>Alt</control> or <control>F10</control> moves keyboard focus to the bar and back, "
        "<control>Alt</control> with the first letter of a menu opens it.",
        "<control>Left and right arrows</control> select neighboring menu, <control>down arrow</control>, "
        "<control>Enter</control> and <control>Space</control> open it."};
    MWriteUsage(item, "", Entries);
}
