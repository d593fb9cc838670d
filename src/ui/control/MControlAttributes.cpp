#include "foundation/events/MEmulatedLockGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/MFlagScope.h"
#include "ui/control/windows/MWindows.h"

void MControl::SetVisible(bool isVisible) {
    if (Is(MControlFlag::Visible) == isVisible) return;
    const MControlRef self(this);
    if (!isVisible) {
        // Handlers may hide each other's controls in turn.
        if (Is(MControlFlag::Vanishing)) return;
        flags.Set(MControlFlag::Vanishing, true);
        const MFlagScope vanishing(*this, MControlFlag::Vanishing);
        DispatchEvent({.type = MEventType::BecomingInvisible});
        if (!self) return;
        if (parent && IsShown())
            parent->InvalidateRect(contentRect.Shifted(windowOffset - parent->windowOffset));
    }
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        flags.Set(MControlFlag::Visible, isVisible);
        TouchSizes();
    }
    if (isVisible)
        Invalidate();
    else
        WithdrawInput();
    if (self && !isVisible) NotifyHidden();
    if (self && linkedControl) linkedControl->SetVisible(isVisible);
}

void MControl::NotifyHidden() {
    if (MRenderer* const renderer = GetRootState().renderer.get()) renderer->OnControlHidden(*this);
    for (MControl* child : children) child->NotifyHidden();
}

void MControl::SetEnabled(bool isEnabled) {
    if (Is(MControlFlag::Enabled) == isEnabled) return;
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        flags.Set(MControlFlag::Enabled, isEnabled);
        PassEnabled();
    }
    const MControlRef self(this);
    Invalidate();
    if (self && linkedControl) linkedControl->SetEnabled(isEnabled);
    if (self && !isEnabled) WithdrawInput();
}

void MControl::PassEnabled() {
    const bool isEnabled = IsEnabled();
    for (MControl* child : children) {
        if (child->Is(MControlFlag::ChildrenEnabled) == isEnabled) continue;
        child->flags.Set(MControlFlag::ChildrenEnabled, isEnabled);
        child->PassEnabled();
    }
}

void MControl::WithdrawInput() {
    const MControlRef self(this);
    if (MControl* const captured = GetRootState().captured; Holds(captured)) {
        captured->ClearButtons();
        ReleaseCapture();
    }
    if (MControl* const hover = GetRootState().hover; Holds(hover)) hover->OnMouseLeave();
    if (self && Holds(GetRootState().focusedControl)) FocusNext();
}

void MControl::SetControlType(MControlType type) {
    if (controlType == type) return;
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        controlType = type;
        TouchSizes();
    }
    if (MStyle* const style = GetStyle()) style->ResetSizes(*this);
    Invalidate();
}

void MControl::SetFont(int32_t newFont) {
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        font = newFont;
        TouchSizes();
    }
    Invalidate();
}

void MControl::SetCaption(const MString& text, MCaptionType type) {
    {
        const MEmulatedLockGuard guard(&GetRootState().lock, MERWLock::Write);
        caption = text;
        captionType = type;
        TouchSizes();
    }
    if (MWindows* const windows = GetWindows(); windows && IsRoot()) windows->GetSystem().SetCaption(*this);
    Invalidate();
}

bool MControl::IsVisible() const {
    const MControl* control = this;
    while (control && control->Is(MControlFlag::Visible)) control = control->parent;
    return !control;
}

bool MControl::IsShown() const {
    const MPoint shownSize = GetShownSize();
    return shownSize.x > 0 && shownSize.y > 0 && IsVisible();
}

MDrawState MControl::GetDrawState() {
    MDrawState state = IsEnabled() ? MDrawEnabled : MDrawDisabled;
    if (HasFocus()) state = state | MDrawFocused;
    if (Is(MControlFlag::MouseInside) && Is(MControlFlag::HotTrack)) state = state | MDrawHighlighted;
    if (Is(MControlFlag::LeftDown) && Is(MControlFlag::Pressable)) state = state | MDrawClicked;
    return state;
}

MColor MControl::GetBackgroundColor() {
    return MColor().WithAlpha(0);
}

MEvent<MOnClickParams>& MControl::OnClick(Click click) {
    if (!clickEvents) clickEvents = std::make_unique<ClickEvents>();
    return (*clickEvents)[static_cast<size_t>(click)];
}

MEvent<MOnNotifyParams>& MControl::OnChange(Change change) {
    if (!changeEvents) changeEvents = std::make_unique<ChangeEvents>();
    return (*changeEvents)[static_cast<size_t>(change)];
}

MEvent<MOnKeyboardShortcutParams, MKeyboardShortcut>& MControl::GetShortcuts() {
    if (!shortcuts) shortcuts = std::make_unique<MEvent<MOnKeyboardShortcutParams, MKeyboardShortcut>>();
    return *shortcuts;
}

void MControl::ExecuteOnChange() {
    if (changeEvents) OnChange().Fire({this});
}

bool MControl::HasOnChangeHandlers() {
    return changeEvents && OnChange().HasHandlers();
}
