#pragma once

#include "foundation/base/MList.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindowSystem.h"

#include <cstdint>

/// What the messages of a platform mean to the windows of a program, the same on every platform: the window
/// systems translate what they hear into these calls. Points are in the window's coordinates unless something
/// else is said. Nothing that is thrown leaves an operation. Any of them may end the root.
///
/// On the thread of the user interface.
class MWindowMessages final {
public:
    explicit MWindowMessages(MWindowSystem& system) : system(system) {}

    /// After a window was hidden, presses and releases are dropped for so long, in milliseconds, so that the
    /// click that closed a popup does not reach what lay behind it.
    static constexpr int64_t HoldOff = 100;

    void EnableEvents(bool mouse, bool keyboard);
    /// A window was hidden.
    void ArmHoldOff();

    // Each returns whether the event was consumed.

    /// A move, press, release, double click or turn of the wheel, whose delta is in 120ths of a step. What is
    /// not consumed of a double click comes as a press. An inactive window is activated by a press, and gets
    /// nothing else unless a control wants it; one behind a modal window gets nothing, but a press there
    /// closes a popup or brings another modal window to the front.
    bool OnMouse(MControl& root, MEventType type, MPoint point, MKeyModifiers modifiers,
                 int32_t wheelDelta = 0);
    void OnMouseLeave(MControl& root) const;
    void OnCaptureLost(MControl& root);
    bool OnKey(MControl& root, MEventType type, int32_t key);
    /// A unit of UTF-16.
    bool OnCharacter(MControl& root, char16_t character);
    /// Paths in the platform's form.
    bool OnFilesDropped(MControl& root, const MList<MString>& paths, MPoint point);

    void OnActivated(MControl& root);
    /// `other`: the root that is active now, or null; `otherTitle`: the title of the window that got the
    /// focus, if it is none of ours.
    void OnDeactivated(MControl& root, MControl* other, const MString& otherTitle);
    /// On the screen.
    void OnMoved(MControl& root, MPoint newPosition);
    void OnSized(MControl& root, MPoint newSize);
    /// The window has got another frame on the screen: moved and sized, as far as it differs.
    void OnFrameChanged(MControl& root, const MRect& before, const MRect& frame);
    void OnCloseRequested(MControl& root);

private:
    [[nodiscard]] bool IsHoldingOff();
    void OnPressBeside(MControl& root);
    [[nodiscard]] bool TakesMouse(MControl& root, const MSystemEvent& event);
    bool SendKey(MControl& root, MSystemEvent event);

    MWindowSystem& system;
    bool isMouseEnabled = true;
    bool isKeyboardEnabled = true;
    int32_t heldKey = 0;      ///< the last one that was pressed, until it is released
    int64_t hiddenTime = -1;  ///< when a window was last hidden; below 0 for long ago
};
