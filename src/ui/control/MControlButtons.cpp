#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

#include <utility>

namespace {

constexpr MControlFlag ButtonFlags[] = {MControlFlag::LeftDown, MControlFlag::RightDown,
                                        MControlFlag::MiddleDown};

/// 0 left, 1 right, 2 middle: the types of presses, releases and double clicks come in this order.
size_t GetButton(MEventType type) {
    return static_cast<size_t>(type) % std::size(ButtonFlags);
}

}  // namespace

MControlFlag MControl::GetButtonFlag(MEventType type) {
    return ButtonFlags[GetButton(type)];
}

void MControl::ClearButtons() {
    for (const MControlFlag flag : ButtonFlags) flags.Set(flag, false);
}

void MControl::InvalidateHot() {
    if (Is(MControlFlag::HotTrack) && !Is(MControlFlag::DrawsOnHover)) Invalidate();
}

void MControl::FireClick(size_t click, const MSystemEvent& event) {
    const MPoint point = GetOwnPoint(event.point);
    const bool isTold = Is(MControlFlag::TellsClicks) && click == static_cast<size_t>(Click::Left);
    if (clickEvents && !isTold && windowRect.Contains(point)) (*clickEvents)[click].Fire({this, point});
}

void MControl::TakeButton(const MSystemEvent& event) {
    // A handler may have taken the control away, and then the release goes elsewhere.
    if (!IsShown() || !IsEnabled()) return;
    const MControlRef self(this);
    // Another window that loses the mouse by this may do anything.
    if (event.type != MEventType::LeftDown || !Is(MControlFlag::NoMouseCapture)) SetCapture(this);
    if (!self) return;
    flags.Set(GetButtonFlag(event.type), true);
    InvalidateHot();
}

void MControl::TrackButtonsDown(const MSystemEvent& event) {
    const MControlRef self(this);
    if (event.IsPress()) {
        SetFocus(this);
        if (self && event.type == MEventType::LeftDown && Is(MControlFlag::RaisesPressEvent))
            FireClick(static_cast<size_t>(Click::Press), event);
        if (self) TakeButton(event);
    } else if (event.type == MEventType::MouseEnter || event.type == MEventType::GotFocus ||
               event.type == MEventType::LostFocus) {
        InvalidateHot();
    } else if (event.type == MEventType::Activation) {
        flags.Set(MControlFlag::Active, event.flag);
        if (event.flag) RefreshCursor();
        // What was told that the focus is gone is told when it is back.
        const bool wasTold = std::exchange(GetRootState().isFocusAway, !event.flag);
        MControl* const focused = GetRootState().focusedControl;
        if (focused && wasTold == event.flag)
            focused->DispatchEvent({.type = event.flag ? MEventType::GotFocus : MEventType::LostFocus});
    }
}

void MControl::TrackButtonsUp(const MSystemEvent& event, bool isConsumed) {
    const MControlRef self(this);
    if (event.IsRelease()) {
        flags.Set(GetButtonFlag(event.type), false);
        ReleaseCapture();
        if (self) InvalidateHot();
        if (self) FireClick(GetButton(event.type), event);
    } else if (event.IsDoubleClick()) {
        // Where nobody has consumed it, it comes again as a press, which then takes the mouse.
        if (isConsumed) TakeButton(event);
        if (self) FireClick(static_cast<size_t>(Click::LeftDouble) + GetButton(event.type), event);
    } else if (event.type == MEventType::MouseLeave) {
        ClearButtons();
        InvalidateHot();
    }
}

bool MControl::ProcessEvent(const MSystemEvent& event) {
    const bool isDown = event.type == MEventType::KeyDown;
    if (isDown || event.type == MEventType::KeyUp)
        return ProcessKey(event.key, isDown, event.Has(MModifierShift));
    if (event.type == MEventType::Activation && !event.flag && IsRoot() && Is(MControlFlag::Modal) &&
        Is(MControlFlag::CloseOnDeactivate) && !HasOpenChildWindow())
        CloseWindow(MModalValue::Cancel);
    return false;
}

bool MControl::ProcessKey(int32_t key, bool isDown, bool isShift) {
    switch (key) {
    case MKeyTab:
        if (isDown) isShift ? FocusPrevious() : FocusNext();
        return true;
    case MKeyLeft:
    case MKeyUp:
        if (isDown) FocusPrevious();
        return true;
    case MKeyRight:
    case MKeyDown:
        if (isDown) FocusNext();
        return true;
    case MKeyEscape: return ProcessEscape(isDown);
    default: return false;
    }
}

bool MControl::ProcessEscape(bool isDown) {
    const MWindows* const windows = MWindows::GetInstance();
    if (isDown && windows && windows->dragSource) {
        windows->dragSource->CancelDragDrop();
        return true;
    }
    if (!root->Is(MControlFlag::CloseOnEscape)) return false;
    const MControlRef window(root);
    if (isDown && window->CanClose() && window) window->CloseWindow(MModalValue::Cancel);
    return true;
}

bool MControl::ProcessGlobalEvent(const MSystemEvent& event) {
    if (event.type != MEventType::LeftDown || !IsRoot() || !windowRect.Contains(event.point)) return false;
    if (const uint8_t borders = HitTestWindowBorder(event.point)) {
        BeginWindowResize(event.point, borders);
        return true;
    }
    if (!Is(MControlFlag::WindowMovable)) return false;
    MStyle* const style = GetStyle();
    if (Is(MControlFlag::Modal) && !(style && style->HitCaption(*this, event.point))) return false;
    BeginWindowMove(event.point);
    return true;
}
