// The way of an event. The platform hands it to the root (`DispatchEvent`); from there it goes down the tree:
//
//     mouse, with a place   to the child at that place, or to the control that has captured the mouse
//     keyboard              along the path to the focused control
//     anything else         to nobody below
//
// On each control of the way, from the root down:
//
//     1. style.PreprocessEvent   may end everything
//     2. PreviewEvent            sees it before the child does; what it consumes goes no deeper
//     3. the child, if there is one
//     4. ProcessEvent            with the marks of pressed buttons before and after it. A mouse event gets
//                                here unless a child has consumed it, a key only on the last control of its
//                                path
//     5. hot keys                if nobody has consumed the key
//     6. ProcessGlobalEvent      on the root: first of the overlay windows, for Enter of the default button
//                                and for other keys of the menu bar, then its own
//     7. help                    on the root
//
// Each of these may end any control, so nothing is touched after a call but through an `MControlRef`.

#include "ui/control/MControl.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

namespace {

bool IsHelpKey(const MSystemEvent& event) {
    return event.type == MEventType::KeyDown &&
           (event.key == MKeyF1 || (event.key == 'H' && event.Has(MModifierControl)));
}

bool IsEnter(const MSystemEvent& event) {
    return (event.type == MEventType::KeyDown || event.type == MEventType::KeyUp) && event.key == MKeyEnter;
}

/// The first control that the user could use and that is looked for, or null.
template <class IsWanted>
MControl* FindUsable(MControl& control, IsWanted isWanted) {
    if (!control.Is(MControlFlag::Visible) || !control.IsEnabled()) return nullptr;
    if (isWanted(control)) return &control;
    for (MControl* child : control.GetChildren())
        if (MControl* const found = FindUsable(*child, isWanted)) return found;
    return nullptr;
}

/// Who in a window hears of what nobody has consumed, or null.
MControl* FindGlobalReceiver(MControl& root, const MSystemEvent& event) {
    if (IsEnter(event))
        return FindUsable(root, [](const MControl& on) { return on.Is(MControlFlag::DefaultButton); });
    if (!event.IsKeyboard()) return nullptr;
    return FindUsable(root, [](const MControl& on) { return on.GetControlType() == MControlType::MenuBar; });
}

}  // namespace

bool MControl::DispatchEvent(const MSystemEvent& event) {
    const MControlRef self(this);
    try {
        if (event.HasPosition() && IsRoot()) UpdateHover(event.point);
        return !self || Route(event);
    } catch (...) {
        // Whatever fails, the button is up.
        if (self && event.IsRelease()) {
            if (MControl* const captured = GetCapture()) captured->ClearButtons();
            ReleaseCapture();
        }
        throw;
    }
}

bool MControl::Route(const MSystemEvent& event) {
    const MControlRef self(this);
    const bool isMouse = event.HasPosition();
    const bool isToCapture = isMouse && capture;
    const MControlRef next(FindNextOnWay(event));
    MStyle* const style = GetStyle();
    if (style && style->PreprocessEvent(*this, event)) return true;
    if (!self) return true;

    bool isConsumed = (isMouse || event.IsKeyboard()) && PreviewEvent(next.Get(), event);
    if (self && !isConsumed) {
        const bool isHandedOn = next && next->Is(MControlFlag::Visible);
        if (isHandedOn) isConsumed = next->Route(event);
        if (isConsumed && isMouse && !isToCapture) return true;
        if (self && !isHandedOn)
            isConsumed = isMouse ? ProcessMouse(event, true) : ProcessHere(event);
        else if (self && isMouse && !isToCapture)
            isConsumed = ProcessMouse(event, false);
    }
    if (self && !isConsumed && event.type == MEventType::KeyDown)
        isConsumed = FireShortcuts(event, MShortcutPhase::Press);
    if (self && !isConsumed && event.type == MEventType::KeyUp)
        isConsumed = FireShortcuts(event, MShortcutPhase::Release);
    if (self && !isConsumed && IsRoot()) isConsumed = ProcessGlobally(event);
    if (self && IsRoot() && Is(MControlFlag::ShowHelpKey) && IsHelpKey(event)) {
        MControl& target = FindControlAt(GetMousePoint());
        target.ShowHelp(target);
    }
    // A press in a modal window leaves nothing to those behind.
    return !self || isConsumed ||
           (event.IsPress() && root->Is(MControlFlag::Modal) && !Is(MControlFlag::SwallowsNothing));
}

MControl* MControl::FindNextOnWay(const MSystemEvent& event) const {
    if (event.IsKeyboard()) {
        const bool canTake = focusChild && focusChild->IsEnabled() && focusChild->Is(MControlFlag::Visible);
        return canTake ? focusChild : nullptr;
    }
    if (!event.HasPosition() || GetRootState().captured == this) return nullptr;
    return capture ? capture : FindChildAt(event.point);
}

/// The first child at the place counts, whatever lies on it; where that takes no events, nobody does.
MControl* MControl::FindChildAt(MPoint windowPoint) const {
    for (MControl* child : children) {
        if (!child->contentRect.Contains(windowPoint - child->windowOffset)) continue;
        if (!child->Is(MControlFlag::Visible)) continue;
        return child->IsEnabled() && child->Is(MControlFlag::AcceptsEvents) ? child : nullptr;
    }
    return nullptr;
}

MControl& MControl::FindControlAt(MPoint windowPoint) {
    MControl* deepest = this;
    while (MControl* const child = deepest->FindChildAt(windowPoint)) deepest = child;
    return *deepest;
}

bool MControl::ProcessMouse(const MSystemEvent& event, bool isLast) {
    const MControlRef self(this);
    MWindows* const windows = MWindows::GetInstance();
    MControl* const dragSource = windows ? windows->dragSource : nullptr;
    bool isConsumed = false;
    if (dragSource && event.type == MEventType::LeftUp)
        FinishDragDrop(event.point);
    else if (dragSource && event.type == MEventType::MouseMove)
        isConsumed = DragOver(*dragSource, event);
    else if (!event.IsRelease() || Is(GetButtonFlag(event.type)))
        isConsumed = ProcessHere(event);
    if (self && isLast) UpdateCursor(GetOwnPoint(event.point));
    return isConsumed;
}

bool MControl::ProcessHere(const MSystemEvent& event) {
    const MControlRef self(this);
    TrackButtonsDown(event);
    if (!self) return true;
    const bool isConsumed = ProcessEvent(event);
    if (!self) return true;
    TrackButtonsUp(event, isConsumed);
    return isConsumed;
}

bool MControl::ProcessGlobally(const MSystemEvent& event) {
    const MControlRef self(this);
    MWindowSystem* const system = GetWindows() ? &GetWindows()->GetSystem() : nullptr;
    for (int32_t i = 0; self && i < GetRootState().overlayWindows.GetCount(); ++i) {
        MControl& overlay = *GetRootState().overlayWindows[i];
        MSystemEvent own = event;
        if (system)
            own.point =
                event.point + system->GetFrame(*this).GetTopLeft() - system->GetFrame(overlay).GetTopLeft();
        if (overlay.ProcessGlobalEvent(own)) return true;
    }
    MControl* const receiver = self ? FindGlobalReceiver(*this, event) : nullptr;
    if (receiver && receiver->ProcessGlobalEvent(event)) return true;
    return !self || ProcessGlobalEvent(event);
}

bool MControl::PreviewEvent(MControl*, const MSystemEvent& event) {
    const bool isFraming = IsRoot() && (Is(MControlFlag::WindowMoving) || Is(MControlFlag::WindowResizing));
    if (isFraming && (event.type == MEventType::LeftUp || event.type == MEventType::MouseMove)) {
        const MControlRef self(this);
        event.type == MEventType::LeftUp ? EndFrame() : AdvanceFrame();
        if (self) ProcessEvent(event);
        return true;
    }
    if (event.type != MEventType::KeyDown && event.type != MEventType::KeyUp) return false;
    if (IsRoot()) RefreshCursor();
    return event.type == MEventType::KeyDown && FireShortcuts(event, MShortcutPhase::Preview);
}

bool MControl::FireShortcuts(const MSystemEvent& event, MShortcutPhase phase) {
    return shortcuts && shortcuts->Fire({this, phase, event.key, event.modifiers});
}

void MControl::UpdateHover(MPoint windowPoint) {
    MControlRoot& state = GetRootState();
    const MWindows* const windows = MWindows::GetInstance();
    if (state.captured || Is(MControlFlag::HoverLocked) || (windows && windows->dragSource)) return;
    MControl* deepest = this;
    while (MControl* const child = deepest->FindChildAt(windowPoint)) {
        deepest = child;
        if (deepest->Is(MControlFlag::HoverLocked)) return;
    }
    if (deepest == state.hover) return;
    const MControlRef self(this);
    const MControlRef entered(deepest);
    if (state.hover) state.hover->OnMouseLeave();
    if (!self || !entered || entered->root != this || state.hover) return;
    state.hover = entered.Get();
    entered->OnMouseEnter();
}

void MControl::OnMouseEnter() {
    flags.Set(MControlFlag::MouseInside, true);
    if (MWindows* const windows = GetWindows()) windows->GetSystem().TrackMouseLeave(*root, true);
    DispatchEvent({.type = MEventType::MouseEnter, .point = GetMousePoint()});
}

void MControl::OnMouseLeave() {
    MControl* const hover = GetRootState().hover;
    // The platform tells the root, whatever control the mouse was in.
    if (IsRoot() && hover && hover != this) return hover->OnMouseLeave();
    GetRootState().hover = nullptr;
    flags.Set(MControlFlag::MouseInside, false);
    DispatchEvent({.type = MEventType::MouseLeave, .point = GetMousePoint()});
}

MPoint MControl::GetMousePoint() const {
    MWindows* const windows = GetWindows();
    return windows ? windows->GetSystem().GetCursorPosition(*root) : MPoint();
}
