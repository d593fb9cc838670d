#include "ui/widgets/menus/MMenuBase.h"

#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"
#include "ui/widgets/menus/MMenuRows.h"

#include <utility>

MMenuBase::MMenuBase(const MString& name) : MControl(nullptr, name), rows(new MMenuRows(*this)) {
    SetControlType(MControlType::Menu);
    SetClientControl(rows);
    Set(MControlFlag::TabStop, false);
    Set(MControlFlag::CloseOnDeactivate);
    Set(MControlFlag::KeepsApplicationAlive);
    // While a sub-menu has the keyboard, the mouse still works here.
    Set(MControlFlag::TakesMouseWhenInactive);
    Set(MControlFlag::MoveToScreenCenter, false);
    Set(MControlFlag::EnableSaveState, false);
}

void MMenuBase::Open(MControl& newOwner, const MRect& anchorOnScreen) {
    OpenOnSide(newOwner, anchorOnScreen, MPopupSide::Below);
}

void MMenuBase::OpenAt(MControl& newOwner, MPoint point) {
    const MPoint place = newOwner.GetScreenPoint(point);
    Open(newOwner, {place.x, place.y, place.x, place.y - 1});
}

void MMenuBase::OpenOnSide(MControl& newOwner, const MRect& newAnchor, MPopupSide newSide) {
    const MControlRef self(this);
    owner.Set(&newOwner);
    Close();
    if (!self || !owner || !MWindows::GetInstance() || GetItemCount() == 0) return;
    // A button that is held down is released over the menu.
    if (MControl* const holder = owner->GetCapture()) {
        owner->ReleaseCapture();
        holder->OnCaptureLost();
        if (!self || !owner) return;
    }
    anchor = newAnchor;
    side = newSide;
    openRow = -1;
    isLeft = false;
    isOpen = true;
    rows->Restart();
    TouchSizes();
    if (!Is(MControlFlag::HasWindow)) CreateWindow(owner.Get());
    ShowModeless(owner.Get());
}

void MMenuBase::OnPrepared() {
    SetPosition(MPlacePopup(size, anchor, side));
}

void MMenuBase::Close() {
    if (isOpen) CloseWindow(MModalValue::Cancel);
}

void MMenuBase::OnClosed() {
    isOpen = false;
    openRow = -1;
    StopTimer();
    // Popups that it was opened over close with it when the user turns to another window.
    GetRootState().modalResult = MModalValue::Cancel;
    wasActive = !isLeft && IsAmongMenus(MWindows::GetInstance()->GetSystem().GetActiveRoot());
}

void MMenuBase::OnHidden() {
    const MControlRef self(this);
    if (std::exchange(wasActive, false) && owner && !(parentMenu && !parentMenu->isOpen))
        MWindows::GetInstance()->GetSystem().Activate(owner->GetRoot());
    if (self && neighbours && !isOpen) neighbours->OnMenuClosed();
}

MMenuBase& MMenuBase::GetTopMenu() {
    MMenuBase* top = this;
    while (top->parentMenu) top = top->parentMenu;
    return *top;
}

bool MMenuBase::IsAmongMenus(MControl* other) {
    const MMenuBase* const top = &GetTopMenu();
    while (other && other != top) other = other->GetRootState().windowParent.Get();
    return other != nullptr;
}

bool MMenuBase::ProcessEvent(const MSystemEvent& event) {
    if (event.type != MEventType::Activation || event.flag) return MControl::ProcessEvent(event);
    if (isOpen && !IsAmongMenus(event.other)) {
        GetTopMenu().isLeft = true;
        CloseAll();
    }
    return true;
}

void MMenuBase::FocusItem(int32_t index) {
    if (isOpen) rows->Focus(index);
}

void MMenuBase::FocusFirstItem() {
    rows->FocusFirst();
}

void MMenuBase::OnRowChanged() {
    if (rows->GetFocusedRow() == openRow)
        StopTimer();
    else
        StartTimer(HoverDelay);
}

void MMenuBase::OnEntered() {
    if (!parentMenu || parentMenu->openRow < 0) return;
    parentMenu->StopTimer();
    parentMenu->rows->SetFocusedRow(parentMenu->openRow);
}

void MMenuBase::OnTimer() {
    StopTimer();
    const int32_t row = rows->GetFocusedRow();
    const MControlRef self(this);
    if (openRow >= 0 && row >= 0) CloseSubMenu();
    if (self && row >= 0 && row < GetItemCount() && openRow < 0) OpenSubMenu(row);
}

void MMenuBase::OpenSubMenu(int32_t row) {
    MMenuItemBaseWithFeatures& item = GetItemFeatures(row);
    if (row == openRow || !item.subMenu || !item.IsSelectable()) return;
    StopTimer();
    const MControlRef self(this);
    CloseSubMenu();
    if (!self || row >= GetItemCount() || &GetItemFeatures(row) != &item) return;
    rows->SetFocusedRow(row);
    openRow = row;
    rows->UpdateRow(row);
    item.subMenu->parentMenu = this;
    const MRect rect = rows->GetRowRect(row);
    const int32_t top = rows->GetScreenPoint(rect.GetTopLeft()).y;
    item.subMenu->OpenOnSide(*rows, MRect::FromSize(position.x, top, size.x, rect.GetHeight()),
                             MPopupSide::Beside);
}

void MMenuBase::CloseSubMenu() {
    const int32_t row = std::exchange(openRow, -1);
    if (row < 0 || row >= GetItemCount()) return;
    rows->UpdateRow(row);
    if (MMenuBase* const subMenu = GetItemFeatures(row).subMenu.get()) subMenu->Close();
}

void MMenuBase::Choose(int32_t row) {
    if (row < 0 || row >= GetItemCount()) return;
    MMenuItemBaseWithFeatures& item = GetItemFeatures(row);
    if (!item.IsSelectable() || !isOpen) return;
    if (item.subMenu) return OpenSubMenu(row);
    const MControlRef self(this);
    CloseAll();
    // Whatever handlers do to the menus, only an item that is still there is told of.
    for (MMenuBase* on = this; self && on; on = on->parentMenu) {
        if (row >= GetItemCount() || &GetItemFeatures(row) != &item) return;
        on->RaiseItem(item);
        if (!self) return;
    }
}

void MMenuBase::OnKeyLeft() {
    if (parentMenu) {
        parentMenu->CloseSubMenu();
    } else if (neighbours) {
        (void)neighbours->OpenNeighbour(-1);
    }
}

void MMenuBase::OnKeyRight() {
    const int32_t row = rows->GetFocusedRow();
    MMenuBase* const subMenu = row >= 0 ? GetItemFeatures(row).subMenu.get() : nullptr;
    if (!subMenu) {
        if (MMenuNeighbours* const others = GetTopMenu().neighbours) (void)others->OpenNeighbour(1);
        return;
    }
    OpenSubMenu(row);
    if (subMenu->isOpen) subMenu->FocusFirstItem();
}
