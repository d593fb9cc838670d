#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"
#include "ui/control/MControlRef.h"
#include "ui/control/MSystemEvent.h"
#include "ui/geometry/MPoint.h"

#include <cstdint>

class MWindowSystemHeadless;

/// Who sits in front of a screen in memory: a mouse, a keyboard and files to drop. What is done reaches the
/// windows at once. Points are on the screen.
class MHeadlessUser final {
public:
    explicit MHeadlessUser(MWindowSystemHeadless& system) : system(system) {}

    void MoveMouse(MPoint point);
    /// One of the three buttons. A press near to the one before, within half a second, is a double click.
    void PressButton(MKeyModifiers button = MModifierLeftButton);
    void ReleaseButton(MKeyModifiers button = MModifierLeftButton);
    /// Moves there, presses and releases, so many times.
    void Click(MPoint point, int32_t count = 1, MKeyModifiers button = MModifierLeftButton);
    /// In 120ths of a step.
    void TurnWheel(int32_t delta);
    /// The keys of `MModifierShift` and its like, held from now on in place of those before.
    void HoldKeys(MKeyModifiers keys);
    /// Presses and releases, with the character that the key gives, if any.
    void PressKey(int32_t key, char16_t character = 0);
    /// Characters alone, as an input method gives them.
    void Type(const MString& text);
    bool DropFiles(const MList<MString>& paths);

    [[nodiscard]] MPoint GetMouse() const { return mouse; }
    /// Puts the mouse somewhere without an event.
    void PlaceMouse(MPoint point) { mouse = point; }
    [[nodiscard]] MKeyModifiers GetModifiers() const { return modifiers; }

private:
    static constexpr int64_t DoubleClickTime = 500;
    static constexpr int32_t DoubleClickDistance = 4;

    bool SendMouse(MEventType type, int32_t wheelDelta = 0);

    MWindowSystemHeadless& system;
    MPoint mouse;
    MKeyModifiers modifiers = MModifierNone;
    MControlRef hovered;  ///< the root under the mouse

    // The press before.
    MControlRef pressed;
    MPoint pressPoint;
    MKeyModifiers pressedButton = MModifierNone;
    int64_t pressTime = 0;
};
