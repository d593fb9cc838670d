#pragma once

#include "foundation/text/MString.h"
#include "ui/control/MSystemEvent.h"
#include "ui/window/x11/display/MXConnection.h"

#include <cstdint>
#include <memory>

/// The keyboard of a display with the user's layouts, dead keys and compose sequences. A key that is held
/// comes as presses without releases between them.
///
/// Input methods that talk to programs over a bus of their own are not asked.
class MXKeyboard {
public:
    /// Raises "The keyboard of the display could not be read." (0).
    explicit MXKeyboard(const MXConnection& connection);
    MXKeyboard(const MXKeyboard&) = delete;
    MXKeyboard& operator=(const MXKeyboard&) = delete;
    ~MXKeyboard();

    /// Takes over what an event says of layouts and modifiers; false if it is about something else. Called
    /// for every event, in their order.
    bool Process(const xcb_generic_event_t& event);

    /// The number of a key, an `MKey` or the like; 0 if it has none. A key that gives no Latin letter or
    /// digit by the layout in use has that of another of the user's layouts.
    [[nodiscard]] int32_t GetVirtualKey(xcb_keycode_t key) const;
    /// What a pressed key types, together with those before it; often nothing. Enter, tabulator, backspace,
    /// escape and letters with the control key type control characters. With the alt key nothing is typed.
    [[nodiscard]] MString TypeKey(xcb_keycode_t key);
    /// Forgets a sequence that has begun, for when the focus goes elsewhere.
    void ForgetSequence();

    /// The modifiers of a mask of keys and buttons as events and `xcb_query_pointer` have it.
    [[nodiscard]] static MKeyModifiers GetModifiers(uint16_t mask);

private:
    struct State;

    [[nodiscard]] bool ReadKeymap();

    const MXConnection& connection;
    const std::unique_ptr<State> state;
};
