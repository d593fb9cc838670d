#include "foundation/events/MEmulatedLockGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

#include <utility>

bool MControl::HasFocus() const {
    return GetRootState().focusedControl == this;
}

bool MControl::CanFocus() const {
    return Is(MControlFlag::TabStop) && Is(MControlFlag::AcceptsFocus) && IsEnabled() && IsShown();
}

void MControl::SetFocus(MControl* control) {
    if (control && control->root != root) return control->SetFocus(control);
    MControl* const old = GetRootState().focusedControl;
    if (control == old || (control && !control->CanFocus())) return;
    const MControlRef lost(old);
    const MControlRef got(control);
    SetFocusPath(control);
    if (lost) lost->DispatchEvent({.type = MEventType::LostFocus});
    if (got && got->HasFocus()) got->DispatchEvent({.type = MEventType::GotFocus});
}

void MControl::SetFocusPath(MControl* control) {
    for (MControl* on = root; on;) on = std::exchange(on->focusChild, nullptr);
    GetRootState().focusedControl = control;
    for (MControl* on = control; on && on->parent; on = on->parent) on->parent->focusChild = on;
}

bool MControl::FocusNext() {
    return MoveFocus(&MControl::tabNext);
}

bool MControl::FocusPrevious() {
    return MoveFocus(&MControl::tabPrevious);
}

bool MControl::MoveFocus(MControl* MControl::*direction) {
    if (!GetRootState().isTabOrderValid) RebuildTabOrder();
    MControl* const focused = GetRootState().focusedControl;
    MControl* const start = focused ? focused : root;
    MControl* control = start->*direction;
    const auto isStop = [](MControl& on) { return on.CanFocus() && on.IsReachedByTab(); };
    while (control != start && !isStop(*control)) control = control->*direction;
    if (control == focused || !isStop(*control)) return false;
    const MControlRef got(control);
    SetFocus(control);
    if (got) got->Reveal(got->contentRect);
    return true;
}

void MControl::Reveal(const MRect& rect) {
    if (parent) parent->Reveal(rect.Shifted(windowOffset - parent->windowOffset));
}

void MControl::RebuildTabOrder() {
    const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
    MControl* last = root;
    root->AppendToTabOrder(last);
    last->tabNext = root;
    root->tabPrevious = last;
    GetRootState().isTabOrderValid = true;
}

/// Depth first, each control before its children.
void MControl::AppendToTabOrder(MControl*& last) {
    last->tabNext = this;
    tabPrevious = last;
    last = this;
    for (MControl* child : children) child->AppendToTabOrder(last);
}
