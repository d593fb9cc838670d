// What the server's events mean.

#include "ui/control/windows/MWindows.h"
#include "ui/window/x11/MWindowSystemX11.h"
#include "ui/window/x11/MXWindow.h"

namespace {

/// The window that an event of a structure is about; an event of the root window tells of its children.
template <class Event>
xcb_window_t GetSubject(const xcb_generic_event_t& event) {
    return MXAs<Event>(event).window;
}

/// An event tells what was held before it.
MKeyModifiers GetModifiersAfter(const xcb_key_press_event_t& event, int32_t key, bool isPress) {
    const MKeyModifiers before = MXKeyboard::GetModifiers(event.state);
    const MKeyModifiers own = key == MKeyShift     ? MModifierShift
                              : key == MKeyControl ? MModifierControl
                              : key == MKeyAlt     ? MModifierAlt
                                                   : MModifierNone;
    return isPress ? before | own : static_cast<MKeyModifiers>(before & ~own);
}

}  // namespace

void MWindowSystemX11::Dispatch(const xcb_generic_event_t& event) {
    MXDisplay& display = platform->display;
    if (display.settings.Process(event)) return owner->UpdateDesktop();
    if (display.keyboard.Process(event) || platform->clipboard.Process(event)) return;
    switch (MXKindOf(event)) {
    case XCB_EXPOSE: {
        const auto& expose = MXAs<xcb_expose_event_t>(event);
        if (MControl* const root = display.Find(expose.window))
            MXWindow::Of(*root)->Invalidate(MRect::FromSize(expose.x, expose.y, expose.width, expose.height));
        break;
    }
    case XCB_CONFIGURE_NOTIFY: OnConfigured(MXAs<xcb_configure_notify_event_t>(event)); break;
    case XCB_REPARENT_NOTIFY:
        if (const MControl* const root = display.Find(GetSubject<xcb_reparent_notify_event_t>(event)))
            MXWindow::Of(*root)->SetReparented(MXAs<xcb_reparent_notify_event_t>(event).parent !=
                                               display.connection.GetRoot());
        break;
    case XCB_BUTTON_PRESS: platform->mouse.OnPress(MXAs<xcb_button_press_event_t>(event)); break;
    case XCB_BUTTON_RELEASE: platform->mouse.OnRelease(MXAs<xcb_button_release_event_t>(event)); break;
    case XCB_MOTION_NOTIFY: platform->mouse.OnMotion(event); break;
    case XCB_ENTER_NOTIFY:
    case XCB_LEAVE_NOTIFY: platform->mouse.OnCrossing(MXAs<xcb_enter_notify_event_t>(event)); break;
    case XCB_KEY_PRESS: OnKey(MXAs<xcb_key_press_event_t>(event), MEventType::KeyDown); break;
    case XCB_KEY_RELEASE: OnKey(MXAs<xcb_key_release_event_t>(event), MEventType::KeyUp); break;
    case XCB_FOCUS_IN:
    case XCB_FOCUS_OUT: platform->activation.OnFocusChanged(MXAs<xcb_focus_in_event_t>(event)); break;
    case XCB_CLIENT_MESSAGE: OnMessage(MXAs<xcb_client_message_event_t>(event)); break;
    // Errors are those of requests that nobody waits for: about windows of others that are gone.
    default: break;
    }
}

// Only the last of several places counts. While the user moves or sizes a window, this program is ahead of
// what it is told.
void MWindowSystemX11::OnConfigured(const xcb_configure_notify_event_t& event) {
    MControl* const root = platform->display.Find(event.window);
    if (!root) return;
    const bool isLast = !platform->display.queue.Has([&](const xcb_generic_event_t& next) {
        return MXKindOf(next) == XCB_CONFIGURE_NOTIFY &&
               MXAs<xcb_configure_notify_event_t>(next).window == event.window;
    });
    if (!isLast || root->Is(MControlFlag::WindowMoving) || root->Is(MControlFlag::WindowResizing)) return;
    MXWindow& window = *MXWindow::Of(*root);
    const MRect before = window.GetFrame();
    if (!window.TakeFrame(event)) return;
    const MRect frame = window.GetFrame();
    if (frame.GetWidth() != before.GetWidth() || frame.GetHeight() != before.GetHeight())
        window.InvalidateAll();
    messages.OnFrameChanged(*root, before, frame);
}

// The keyboard of a popup is that of the window that it stands over.
void MWindowSystemX11::OnKey(const xcb_key_press_event_t& event, MEventType type) {
    platform->display.time = event.time;
    platform->mouse.Settle();
    MControl* const active = platform->activation.GetActive();
    MControl* const root = active ? active : platform->display.Find(event.event);
    if (!root) return;
    MXKeyboard& keyboard = platform->display.keyboard;
    if (type == MEventType::KeyDown) MXWindow::Of(*root)->TellUserTime();
    const int32_t key = keyboard.GetVirtualKey(event.detail);
    keyModifiers = GetModifiersAfter(event, key, type == MEventType::KeyDown);
    // Characters come after the key itself, but also when that makes a loop run that waits for more.
    if (type == MEventType::KeyDown) {
        const MString text = keyboard.TypeKey(event.detail);
        for (int32_t i = 0; i < text.GetLength(); ++i)
            typed.push_back({MXWindow::Of(*root)->GetId(), text[i], *keyModifiers});
    }
    if (key) messages.OnKey(*root, type, key);
}

void MWindowSystemX11::OnMessage(const xcb_client_message_event_t& message) {
    const MXConnection& connection = platform->display.connection;
    if (platform->dragTarget.Process(message) || message.type != connection[MXAtom::WMProtocols]) return;
    const xcb_atom_t protocol = message.data.data32[0];
    if (protocol == connection[MXAtom::NetWMPing]) {
        AnswerPing(message);
    } else if (protocol == connection[MXAtom::WMDeleteWindow]) {
        platform->display.time = message.data.data32[1];
        if (MControl* const root = platform->display.Find(message.window)) messages.OnCloseRequested(*root);
    }
}

bool MWindowSystemX11::IsPing(const xcb_generic_event_t& event) const {
    const auto& message = MXAs<xcb_client_message_event_t>(event);
    const MXConnection& connection = platform->display.connection;
    return MXKindOf(event) == XCB_CLIENT_MESSAGE && message.type == connection[MXAtom::WMProtocols] &&
           message.data.data32[0] == connection[MXAtom::NetWMPing];
}

// The message goes back as it is, to the root window.
void MWindowSystemX11::AnswerPing(xcb_client_message_event_t message) const {
    const MXConnection& connection = platform->display.connection;
    message.window = connection.GetRoot();
    xcb_send_event(connection, 0, message.window,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}
