#include "ui/window/headless/MHeadlessUser.h"

#include "ui/window/headless/MHeadlessWindow.h"
#include "ui/window/headless/MWindowSystemHeadless.h"

#include <cstdlib>

namespace {

/// `first` is the type of the left button's event; those of the right and the middle one follow.
MEventType GetTypeOf(MEventType first, MKeyModifiers button) {
    const uint32_t offset = button == MModifierLeftButton ? 0 : button == MModifierRightButton ? 1 : 2;
    return static_cast<MEventType>(static_cast<uint32_t>(first) + offset);
}

}  // namespace

bool MHeadlessUser::SendMouse(MEventType type, int32_t wheelDelta) {
    const MControlRef root(system.GetRootUnder(mouse));
    if (hovered.Get() != root.Get()) {
        const MHeadlessWindow* const left = hovered ? MHeadlessWindow::Of(*hovered.Get()) : nullptr;
        if (left && left->isLeaveTracked) system.GetMessages().OnMouseLeave(*hovered.Get());
        hovered.Set(root.Get());
    }
    if (!root) return false;
    const MPoint point = mouse - system.GetFrame(*root.Get()).GetTopLeft();
    return system.GetMessages().OnMouse(*root.Get(), type, point, modifiers, wheelDelta);
}

void MHeadlessUser::MoveMouse(MPoint point) {
    mouse = point;
    SendMouse(MEventType::MouseMove);
}

void MHeadlessUser::PressButton(MKeyModifiers button) {
    modifiers = modifiers | button;
    MControl* const root = system.GetRootUnder(mouse);
    const MPoint distance = mouse - pressPoint;
    const bool isDouble = root && pressed.Get() == root && pressedButton == button &&
                          system.GetTime() - pressTime < DoubleClickTime &&
                          std::abs(distance.x) <= DoubleClickDistance &&
                          std::abs(distance.y) <= DoubleClickDistance;
    // A third press begins a new pair.
    pressed.Set(isDouble ? nullptr : root);
    pressPoint = mouse;
    pressedButton = button;
    pressTime = system.GetTime();
    SendMouse(GetTypeOf(isDouble ? MEventType::LeftDoubleClick : MEventType::LeftDown, button));
}

void MHeadlessUser::ReleaseButton(MKeyModifiers button) {
    modifiers = static_cast<MKeyModifiers>(modifiers & ~button);
    SendMouse(GetTypeOf(MEventType::LeftUp, button));
}

void MHeadlessUser::Click(MPoint point, int32_t count, MKeyModifiers button) {
    MoveMouse(point);
    for (int32_t click = 0; click < count; ++click) {
        PressButton(button);
        ReleaseButton(button);
    }
}

void MHeadlessUser::TurnWheel(int32_t delta) {
    SendMouse(MEventType::Wheel, delta);
}

void MHeadlessUser::HoldKeys(MKeyModifiers keys) {
    constexpr uint8_t Buttons = MModifierLeftButton | MModifierMiddleButton | MModifierRightButton;
    modifiers = static_cast<MKeyModifiers>((modifiers & Buttons) | keys);
}

void MHeadlessUser::PressKey(int32_t key, char16_t character) {
    MWindowMessages& messages = system.GetMessages();
    if (MControl* const root = system.GetActiveRoot()) messages.OnKey(*root, MEventType::KeyDown, key);
    MControl* const receiver = character ? system.GetActiveRoot() : nullptr;
    if (receiver) messages.OnCharacter(*receiver, character);
    if (MControl* const root = system.GetActiveRoot()) messages.OnKey(*root, MEventType::KeyUp, key);
}

void MHeadlessUser::Type(const MString& text) {
    for (int32_t index = 0; index < text.GetLength(); ++index)
        if (MControl* const root = system.GetActiveRoot())
            system.GetMessages().OnCharacter(*root, static_cast<char16_t>(text[index]));
}

bool MHeadlessUser::DropFiles(const MList<MString>& paths) {
    MControl* const root = system.GetRootUnder(mouse);
    if (!root) return false;
    return system.GetMessages().OnFilesDropped(*root, paths, mouse - system.GetFrame(*root).GetTopLeft());
}
