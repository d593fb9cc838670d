#include "ui/window/x11/input/MXMouse.h"

#include "ui/window/x11/MXWindow.h"

#include <cstdlib>
#include <utility>

namespace {

constexpr uint16_t Buttons =
    XCB_KEY_BUT_MASK_BUTTON_1 | XCB_KEY_BUT_MASK_BUTTON_2 | XCB_KEY_BUT_MASK_BUTTON_3;
constexpr uint16_t GrabbedEvents = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                   XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW |
                                   XCB_EVENT_MASK_LEAVE_WINDOW;
constexpr xcb_button_t WheelUp = 4;
constexpr xcb_button_t WheelDown = 5;
constexpr int32_t WheelStep = 120;

bool IsButton(xcb_button_t button) {
    return button >= 1 && button <= 3;
}

uint16_t GetMask(xcb_button_t button) {
    return static_cast<uint16_t>(XCB_KEY_BUT_MASK_BUTTON_1 << (button - 1));
}

/// `first` is the type of the left button's event; those of the right and the middle one follow.
MEventType GetType(MEventType first, xcb_button_t button) {
    const uint32_t offset = button == 1 ? 0 : button == 3 ? 1 : 2;
    return static_cast<MEventType>(static_cast<uint32_t>(first) + offset);
}

}  // namespace

MControl* MXMouse::FindTarget(const xcb_button_press_event_t& event, MPoint& point) const {
    MControl* const root = captured ? captured : display.Find(event.event);
    if (!root) return nullptr;
    // While the user moves or sizes the window, only the screen stands still.
    const bool isAsTold =
        !captured && !root->Is(MControlFlag::WindowMoving) && !root->Is(MControlFlag::WindowResizing);
    point = isAsTold ? MPoint{event.event_x, event.event_y}
                     : MPoint{event.root_x, event.root_y} - MXWindow::Of(*root)->GetFrame().GetTopLeft();
    return root;
}

void MXMouse::OnPress(const xcb_button_press_event_t& event) {
    display.time = event.time;
    Settle();
    MPoint point;
    if (event.detail == WheelUp || event.detail == WheelDown) {
        if (MControl* const root = FindTarget(event, point))
            messages.OnMouse(*root, MEventType::Wheel, point, MXKeyboard::GetModifiers(event.state),
                             event.detail == WheelUp ? WheelStep : -WheelStep);
        return;
    }
    if (!IsButton(event.detail)) return;
    const auto state = static_cast<uint16_t>(event.state | GetMask(event.detail));
    heldButtons = state & Buttons;
    if (IsForPopups(event)) return;
    const bool isDouble = IsDoubleClick(event);
    MControl* const root = FindTarget(event, point);
    if (!root) return;
    if (!captured) {
        // Not every manager tells where it has put a window.
        const MPoint origin{event.root_x - event.event_x, event.root_y - event.event_y};
        MXWindow::Of(*root)->TakeOrigin(origin);
        messages.OnMoved(*root, origin);
    }
    MXWindow::Of(*root)->TellUserTime();
    messages.OnMouse(*root,
                     GetType(isDouble ? MEventType::LeftDoubleClick : MEventType::LeftDown, event.detail),
                     point, MXKeyboard::GetModifiers(state));
}

// While a popup has the mouse, presses beside the windows of this program come to it as well.
bool MXMouse::IsForPopups(const xcb_button_press_event_t& event) {
    if (popups.empty() || captured) return false;
    MControl* const top = popups.back();
    MControl* const root = display.Find(event.event);
    if (root != top) {
        activation.SetActive(root);
        return false;
    }
    const MRect& frame = MXWindow::Of(*top)->GetFrame();
    if (frame.Contains({event.root_x, event.root_y})) return false;
    activation.SetActive(activation.GetFocused());
    return true;
}

bool MXMouse::IsDoubleClick(const xcb_button_press_event_t& event) {
    const bool isDouble =
        lastPress.detail == event.detail && lastPress.event == event.event &&
        event.time - lastPress.time < static_cast<uint32_t>(display.settings.GetDoubleClickTime()) &&
        std::abs(event.root_x - lastPress.root_x) <= DoubleClickDistance &&
        std::abs(event.root_y - lastPress.root_y) <= DoubleClickDistance;
    // A third press begins a new pair.
    lastPress = isDouble ? xcb_button_press_event_t() : event;
    return isDouble;
}

void MXMouse::OnRelease(const xcb_button_release_event_t& event) {
    if (!IsButton(event.detail)) return;
    display.time = event.time;
    Settle();
    const auto state = static_cast<uint16_t>(event.state & ~GetMask(event.detail));
    heldButtons = state & Buttons;
    MPoint point;
    if (MControl* const root = FindTarget(event, point))
        messages.OnMouse(*root, GetType(MEventType::LeftUp, event.detail), point,
                         MXKeyboard::GetModifiers(state));
    // The server lets go of the mouse with the last button.
    if (captured && heldButtons == 0 && popups.empty()) Grab(*captured, false);
}

void MXMouse::OnMotion(const xcb_generic_event_t& event) {
    // Both have the same form.
    const auto& motion = MXAs<xcb_button_press_event_t>(event);
    if (hasWarped && static_cast<int32_t>(event.full_sequence - warpRequest) < 0) return;
    hasWarped = false;
    const xcb_generic_event_t* const next = display.queue.Peek();
    if (next && MXKindOf(*next) == XCB_MOTION_NOTIFY &&
        MXAs<xcb_motion_notify_event_t>(*next).event == motion.event)
        return;
    display.time = motion.time;
    Settle();
    MPoint point;
    MControl* const root = FindTarget(motion, point);
    if (root) messages.OnMouse(*root, MEventType::MouseMove, point, MXKeyboard::GetModifiers(motion.state));
}

void MXMouse::OnCrossing(const xcb_enter_notify_event_t& event) {
    MControl* const root = display.Find(event.event);
    if (!root || captured || event.mode == XCB_NOTIFY_MODE_GRAB || (event.state & Buttons) != 0) return;
    if (event.response_type % 0x80 == XCB_ENTER_NOTIFY)
        messages.OnMouse(*root, MEventType::MouseMove, {event.event_x, event.event_y},
                         MXKeyboard::GetModifiers(event.state));
    else if (std::exchange(MXWindow::Of(*root)->isLeaveTracked, false))
        messages.OnMouseLeave(*root);
}

void MXMouse::SetCapture(MControl& root, bool isOn) {
    if (isOn) {
        captured = &root;
        if (heldButtons == 0 && popups.empty()) Grab(root, false);
    } else if (captured == &root) {
        captured = nullptr;
        GiveBack();
    }
}

void MXMouse::LoseCapture() {
    MControl* const root = std::exchange(captured, nullptr);
    if (!root) return;
    GiveBack();
    messages.OnCaptureLost(*root);
}

void MXMouse::Warp(MControl& root, MPoint point) {
    const xcb_window_t window = MXWindow::Of(root)->GetId();
    const auto request = xcb_warp_pointer(display.connection, XCB_WINDOW_NONE, window, 0, 0, 0, 0,
                                          static_cast<int16_t>(point.x), static_cast<int16_t>(point.y));
    warpRequest = request.sequence;
    hasWarped = true;
    xcb_flush(display.connection);
}

void MXMouse::OnShown(MControl& root) {
    if (!MXWindow::Of(root)->IsPopup()) return;
    std::erase(popups, &root);
    popups.push_back(&root);
    Grab(root, true);
}

void MXMouse::Forget(MControl& root) {
    if (captured == &root) captured = nullptr;
    if (std::erase(popups, &root) > 0 || isGrabbed) GiveBack();
}

void MXMouse::Grab(MControl& root, bool isForPopup) {
    // The other windows of this program go on getting what happens over them while there is a popup.
    const auto request = xcb_grab_pointer(display.connection, isForPopup, MXWindow::Of(root)->GetId(),
                                          GrabbedEvents, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                                          XCB_WINDOW_NONE, XCB_CURSOR_NONE, display.time);
    const MXReply<xcb_grab_pointer_reply_t> reply(
        xcb_grab_pointer_reply(display.connection, request, nullptr));
    isGrabbed = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void MXMouse::GiveBack() {
    if (!std::exchange(isGrabbed, false)) return;
    if (!popups.empty()) {
        Grab(*popups.back(), true);
        return;
    }
    xcb_ungrab_pointer(display.connection, XCB_CURRENT_TIME);
    xcb_flush(display.connection);
}
