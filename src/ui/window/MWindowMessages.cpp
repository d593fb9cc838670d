#include "ui/window/MWindowMessages.h"

#include "foundation/base/MGuard.h"
#include "foundation/module/MPlatform.h"
#include "ui/control/MControlRef.h"
#include "ui/control/MControlRoot.h"
#include "ui/control/windows/MWindows.h"

#include <algorithm>
#include <utility>

namespace {

constexpr const char* MessagesLabel = "MWindowProc (messages)";
constexpr const char* MouseLabel = "WndProcMouse";
constexpr int32_t WheelStep = 120;

const char* GetKeyLabel(MEventType type) {
    if (type == MEventType::KeyDown) return "Processing keyboard event MSystemEvent::KeyDown";
    if (type == MEventType::KeyUp) return "Processing keyboard event MSystemEvent::KeyUp";
    return "Processing keyboard event MSystemEvent::Character";
}

bool IsBlocked(const MControl& root) {
    const MWindows* const windows = MWindows::GetInstance();
    return !windows || windows->IsBlocked(root);
}

/// A press of the button of a double click.
MEventType GetPressOf(MEventType doubleClick) {
    constexpr uint32_t Distance =
        static_cast<uint32_t>(MEventType::LeftDoubleClick) - static_cast<uint32_t>(MEventType::LeftDown);
    return static_cast<MEventType>(static_cast<uint32_t>(doubleClick) - Distance);
}

/// In whole steps, at least one.
int32_t CountWheelSteps(int32_t delta) {
    if (std::abs(delta) >= WheelStep) return delta / WheelStep;
    return delta < 0 ? -1 : 1;
}

/// It shows whether the window is the active one.
void InvalidateCaption(MControl& root) {
    const MRect& whole = root.windowRect;
    const MRect caption{whole.left, whole.top, whole.right, root.clientRect.top - 1};
    if (!caption.IsEmpty()) root.InvalidateRect(caption);
}

}  // namespace

void MWindowMessages::EnableEvents(bool mouse, bool keyboard) {
    isMouseEnabled = mouse;
    isKeyboardEnabled = keyboard;
}

void MWindowMessages::ArmHoldOff() {
    hiddenTime = system.GetTime();
}

bool MWindowMessages::IsHoldingOff() {
    if (hiddenTime < 0) return false;
    const int64_t passed = system.GetTime() - hiddenTime;
    if (passed >= 0 && passed < HoldOff) return true;
    hiddenTime = -1;
    return false;
}

/// A press beside modal windows closes a popup on top of them, and brings any other one to the front.
void MWindowMessages::OnPressBeside(MControl& root) {
    const MWindows& windows = *MWindows::GetInstance();
    MControl* top = &root;
    while (MControl* const over = windows.GetBlocker(*top)) top = over;
    if (top->Is(MControlFlag::CloseOnDeactivate))
        OnDeactivated(*top, &root, MString());
    else
        system.Activate(*top);
}

/// Whether an event is for a root at all; activates an inactive one by a press.
bool MWindowMessages::TakesMouse(MControl& root, const MSystemEvent& event) {
    MWindows* const windows = MWindows::GetInstance();
    if (!isMouseEnabled || !windows) return false;
    if (windows->IsBlocked(root)) {
        if (event.IsPress() || event.IsDoubleClick()) OnPressBeside(root);
        return false;
    }
    if (event.type != MEventType::MouseMove && IsHoldingOff()) return false;
    if (root.Is(MControlFlag::Active)) return true;
    if (root.FindControlAt(event.point).Is(MControlFlag::TakesMouseWhenInactive)) return true;
    if (!event.IsPress() && !event.IsDoubleClick()) return root.Is(MControlFlag::TakesMouseWhenInactive);
    system.Activate(root);
    // By this a popup may have closed, for which the press was then meant.
    return !IsHoldingOff();
}

bool MWindowMessages::OnMouse(MControl& root, MEventType type, MPoint point, MKeyModifiers modifiers,
                              int32_t wheelDelta) {
    bool isConsumed = false;
    MGuard(MouseLabel, [&] {
        const MControlRef alive(&root);
        MSystemEvent event;
        event.type = type;
        event.point = point;
        event.modifiers = modifiers;
        if (type == MEventType::Wheel) event.wheelDelta = CountWheelSteps(wheelDelta);
        if (!TakesMouse(root, event)) {
            if (alive) root.UpdateCursor(point);
            return;
        }
        if (!alive) return;
        const bool isPressToo =
            event.IsDoubleClick() && root.FindControlAt(point).Is(MControlFlag::DoubleClicksAsClicks);
        isConsumed = root.DispatchEvent(event);
        if (isConsumed || !isPressToo || !alive) return;
        event.type = GetPressOf(type);
        isConsumed = root.DispatchEvent(event);
    });
    return isConsumed;
}

void MWindowMessages::OnMouseLeave(MControl& root) const {
    if (isMouseEnabled) MGuard(MouseLabel, [&] { root.OnMouseLeave(); });
}

void MWindowMessages::OnCaptureLost(MControl& root) {
    MGuard(MessagesLabel, [&] { root.OnCaptureLost(); });
}

bool MWindowMessages::SendKey(MControl& root, MSystemEvent event) {
    if (!isKeyboardEnabled || IsBlocked(root)) return false;
    bool isConsumed = false;
    MGuard(GetKeyLabel(event.type), [&] {
        event.point = system.GetCursorPosition(root);
        event.modifiers = system.GetModifiers();
        isConsumed = root.DispatchEvent(event);
    });
    return isConsumed;
}

bool MWindowMessages::OnKey(MControl& root, MEventType type, int32_t key) {
    MSystemEvent event;
    event.type = type;
    // Keyboards without the key for context menus have Shift and F10 for it.
    event.key = key == MKeyF10 && system.GetModifiers() & MModifierShift ? MKeyMenu : key;
    const bool isDown = type == MEventType::KeyDown;
    event.isRepeated = std::exchange(heldKey, isDown ? key : 0) == key && isDown;
    return SendKey(root, event);
}

bool MWindowMessages::OnCharacter(MControl& root, char16_t character) {
    MSystemEvent event;
    event.type = MEventType::Character;
    event.character = character;
    return SendKey(root, event);
}

bool MWindowMessages::OnFilesDropped(MControl& root, const MList<MString>& paths, MPoint point) {
    if (IsBlocked(root)) return false;
    bool isTaken = false;
    MGuard(MessagesLabel, [&] {
        MList<MString> files;
        for (const MString& path : paths) files.Add(MPlatform::GetPathText(path));
        isTaken = root.DropFiles(files, point);
    });
    return isTaken;
}

void MWindowMessages::OnActivated(MControl& root) {
    MGuard(MessagesLabel, [&] {
        root.Set(MControlFlag::Active);
        InvalidateCaption(root);
        if (!root.GetRootState().focusedControl || IsBlocked(root)) return;
        MSystemEvent event;
        event.type = MEventType::Activation;
        event.flag = true;
        root.DispatchEvent(event);
    });
}

void MWindowMessages::OnDeactivated(MControl& root, MControl* other, const MString& otherTitle) {
    MGuard(MessagesLabel, [&] {
        // The mixer of a host takes the focus while a plug-in's popup opens, and does not mean it.
        if (root.Is(MControlFlag::Modal) && root.Is(MControlFlag::CloseOnDeactivate) &&
            otherTitle.Contains("mixer")) {
            system.Activate(root);
            return;
        }
        const MWindows* const windows = MWindows::GetInstance();
        MSystemEvent event;
        event.type = MEventType::Activation;
        event.other = windows && windows->HasRoot(other) ? other : nullptr;
        // Nobody tells of keys that are released over another program.
        if (!event.other) heldKey = 0;
        const MControlRef alive(&root);
        const MControlRef below(root.GetRootState().windowParent.Get());
        const bool wasOpen = root.GetRootState().modalResult == MModalValue::None;
        root.DispatchEvent(event);
        if (alive) InvalidateCaption(root);
        const bool isClosed = wasOpen && alive && root.GetRootState().modalResult != MModalValue::None;
        // The popups that this one was opened over are left as well, and had lost the focus before.
        if (isClosed && below && below.Get() != other && below->Is(MControlFlag::CloseOnDeactivate))
            OnDeactivated(*below.Get(), other, otherTitle);
    });
}

void MWindowMessages::OnMoved(MControl& root, MPoint newPosition) {
    root.position = newPosition;
}

void MWindowMessages::OnSized(MControl& root, MPoint newSize) {
    MGuard(MessagesLabel, [&] { root.OnWindowSized(newSize); });
}

void MWindowMessages::OnFrameChanged(MControl& root, const MRect& before, const MRect& frame) {
    const MPoint size{frame.GetWidth(), frame.GetHeight()};
    if (before.GetTopLeft() != frame.GetTopLeft()) OnMoved(root, frame.GetTopLeft());
    if (size != MPoint{before.GetWidth(), before.GetHeight()}) OnSized(root, size);
}

void MWindowMessages::OnCloseRequested(MControl& root) {
    MGuard(MessagesLabel, [&] {
        if (!IsBlocked(root)) root.RequestClose();
    });
}
