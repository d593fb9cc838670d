#pragma once

#include "ui/window/x11/input/MXActivation.h"

#include <vector>

/// The mouse of a display: makes of its events what happens to the roots, with double clicks, capture, and
/// the popups that are closed by a press elsewhere.
class MXMouse {
public:
    MXMouse(MXDisplay& display, MWindowMessages& messages, MXActivation& activation)
        : display(display), messages(messages), activation(activation) {}
    MXMouse(const MXMouse&) = delete;
    MXMouse& operator=(const MXMouse&) = delete;

    /// Has the roots told which of them is active now: when no event is left, and before whatever the user
    /// does. Who turns to another program takes the mouse along.
    void Settle() {
        if (activation.Settle()) LoseCapture();
    }
    void OnPress(const xcb_button_press_event_t& event);
    void OnRelease(const xcb_button_release_event_t& event);
    void OnMotion(const xcb_generic_event_t& event);
    void OnCrossing(const xcb_enter_notify_event_t& event);

    /// All that the mouse does belongs to a root, or no longer.
    void SetCapture(MControl& root, bool isOn);
    /// Takes the mouse away from the root that has captured it, and tells it.
    void LoseCapture();
    /// Moves the mouse. Moves that are still on their way are dropped.
    void Warp(MControl& root, MPoint point);

    /// A window has appeared.
    void OnShown(MControl& root);
    /// It was hidden, or ends.
    void Forget(MControl& root);

private:
    static constexpr int32_t DoubleClickDistance = 4;

    /// Gives the root that an event is for, and where it happened in its window.
    [[nodiscard]] MControl* FindTarget(const xcb_button_press_event_t& event, MPoint& point) const;
    /// True if a press was outside of the popups and only closes them.
    [[nodiscard]] bool IsForPopups(const xcb_button_press_event_t& event);
    [[nodiscard]] bool IsDoubleClick(const xcb_button_press_event_t& event);
    void Grab(MControl& root, bool isForPopup);
    /// The mouse belongs to the topmost popup, if there is one, or to whomever it is over.
    void GiveBack();

    MXDisplay& display;
    MWindowMessages& messages;
    MXActivation& activation;
    MControl* captured = nullptr;
    std::vector<MControl*> popups;  ///< that are shown, the topmost last
    bool isGrabbed = false;         ///< for a capture that began without a button
    uint16_t heldButtons = 0;
    bool hasWarped = false;
    uint32_t warpRequest = 0;
    xcb_button_press_event_t lastPress{};  ///< for double clicks; of button 0 if there was none
};
