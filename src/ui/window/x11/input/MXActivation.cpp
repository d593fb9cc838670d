#include "ui/window/x11/input/MXActivation.h"

#include "foundation/text/MUnicode.h"
#include "ui/window/x11/MXWindow.h"

#include <utility>

// A grab of somebody moves the keyboard for a moment, which means nothing; nor does a keyboard that follows
// the mouse, or goes from a window to one inside it.
void MXActivation::OnFocusChanged(const xcb_focus_in_event_t& event) {
    if (event.mode == XCB_NOTIFY_MODE_GRAB || event.mode == XCB_NOTIFY_MODE_UNGRAB) return;
    if (event.detail == XCB_NOTIFY_DETAIL_POINTER || event.detail == XCB_NOTIFY_DETAIL_INFERIOR) return;
    MControl* const root = display.Find(event.event);
    if (!root) return;
    if (MXKindOf(reinterpret_cast<const xcb_generic_event_t&>(event)) == XCB_FOCUS_IN)
        focused = root;
    else if (focused == root)
        focused = nullptr;
    hasChanged = true;
}

bool MXActivation::Settle() {
    if (!std::exchange(hasChanged, false)) return false;
    const bool wasActive = active;
    const bool isPopupActive = focused && active && !MXWindow::Of(*active)->IsManaged();
    if (!isPopupActive) SetActive(focused);
    return wasActive && !active;
}

void MXActivation::SetActive(MControl* root) {
    if (active == root) return;
    display.keyboard.ForgetSequence();
    if (MControl* const before = std::exchange(active, root))
        messages.OnDeactivated(*before, root, root ? MString() : GetForeignTitle());
    // A handler may have decided otherwise.
    if (root && active == root) messages.OnActivated(*root);
}

void MXActivation::Activate(MControl& root) {
    MXWindow& window = *MXWindow::Of(root);
    if (!window.IsShown()) return;
    window.Activate(active ? MXWindow::Of(*active)->GetId() : xcb_window_t{XCB_WINDOW_NONE});
    if (focused) SetActive(&root);
}

void MXActivation::Forget(MControl& root) {
    if (focused == &root) focused = nullptr;
    if (active == &root) SetActive(focused);
}

MString MXActivation::GetForeignTitle() const {
    const MXConnection& connection = display.connection;
    const MXProperty window =
        connection.GetProperty(connection.GetRoot(), connection[MXAtom::NetActiveWindow]);
    if (window.GetWords().empty() || display.Find(window.GetWords().front())) return {};
    return MDecodeUTF8Exact(
        connection.GetProperty(window.GetWords().front(), connection[MXAtom::NetWMName]).bytes);
}
