#pragma once

#include "ui/window/MWindowMessages.h"
#include "ui/window/x11/display/MXDisplay.h"

/// Which root the user works with. Mostly that is the one with the keyboard of the display; but a popup,
/// which gets no keyboard of its own, is active over the one that has it, and a root that was activated is at
/// once, while the window manager still makes up its mind.
class MXActivation {
public:
    MXActivation(MXDisplay& display, MWindowMessages& messages) : display(display), messages(messages) {}
    MXActivation(const MXActivation&) = delete;
    MXActivation& operator=(const MXActivation&) = delete;

    /// Null while the user works with another program.
    [[nodiscard]] MControl* GetActive() const { return active; }
    /// The root whose window has the keyboard.
    [[nodiscard]] MControl* GetFocused() const { return focused; }

    /// The keyboard has come to a window or left it; counts when `Settle` is called.
    void OnFocusChanged(const xcb_focus_in_event_t& event);
    /// Tells the roots what the changes since the last call come down to. Returns whether the user has turned
    /// to another program.
    bool Settle();
    /// Tells the roots of a change.
    void SetActive(MControl* root);
    /// Brings a root to the front.
    void Activate(MControl& root);
    /// Its window was hidden, or ends.
    void Forget(MControl& root);

private:
    [[nodiscard]] MString GetForeignTitle() const;

    MXDisplay& display;
    MWindowMessages& messages;
    MControl* active = nullptr;
    MControl* focused = nullptr;
    bool hasChanged = false;
};
