#include "ui/window/x11/MXWindow.h"

#include "foundation/base/MException.h"
#include "foundation/text/MUnicode.h"
#include "ui/window/MBackBuffer.h"
#include "ui/window/MMaskRectangles.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>
#include <xcb/shape.h>

namespace {

constexpr uint32_t Events =
    XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE | XCB_EVENT_MASK_BUTTON_PRESS |
    XCB_EVENT_MASK_BUTTON_RELEASE | XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW |
    XCB_EVENT_MASK_LEAVE_WINDOW | XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
    XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_PROPERTY_CHANGE;

}  // namespace

MXWindow::MXWindow(MXDisplay& display, const MRect& frame, xcb_window_t owner, bool isInTaskbar)
    : display(display),
      connection(display.connection),
      id(xcb_generate_id(connection)),
      frame(frame),
      isInTaskbar(isInTaskbar),
      painter(std::make_shared<MBackBuffer>()) {
    const MXVisual& visual = display.visual;
    // A border has to be told where the visual is not the root's.
    const std::array<uint32_t, 5> values = {XCB_BACK_PIXMAP_NONE, 0, XCB_GRAVITY_NORTH_WEST, Events,
                                            visual.colormap};
    const auto request = xcb_create_window_checked(
        connection, visual.depth, id, connection.GetRoot(), static_cast<int16_t>(frame.left),
        static_cast<int16_t>(frame.top), static_cast<uint16_t>(std::max(frame.GetWidth(), 1)),
        static_cast<uint16_t>(std::max(frame.GetHeight(), 1)), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        visual.visual,
        XCB_CW_BACK_PIXMAP | XCB_CW_BORDER_PIXEL | XCB_CW_BIT_GRAVITY | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
        values.data());
    if (!connection.Succeeds(request))
        MRaise(MExceptionGeneral, "Sorry, your system is out of resources.\n\n"
                                  "Information: Could not create a window.");
    presenter = std::make_unique<MXPresenter>(connection, visual, id);
    SetOwner(owner);
}

MXWindow::~MXWindow() {
    painter->OnWindowDestroyed();
    presenter.reset();
    xcb_destroy_window(connection, id);
    xcb_flush(connection);
}

void MXWindow::SetCaption(const MString& caption) {
    const std::string text = MEncodeUTF8Exact(caption);
    connection.SetBytes(id, MXAtom::NetWMName, connection[MXAtom::UTF8String], text);
    connection.SetBytes(id, MXAtom::WMName, connection[MXAtom::UTF8String], text);
}

void MXWindow::SetOwner(xcb_window_t owner) {
    if (owner == XCB_WINDOW_NONE)
        xcb_delete_property(connection, id, connection[MXAtom::WMTransientFor]);
    else
        connection.SetWords(id, MXAtom::WMTransientFor, connection[MXAtom::Window], {&owner, 1});
}

void MXWindow::Embed(xcb_window_t parent) {
    isEmbedded = parent != XCB_WINDOW_NONE;
    if (!isEmbedded) parent = connection.GetRoot();
    xcb_reparent_window(connection, id, parent, static_cast<int16_t>(frame.left),
                        static_cast<int16_t>(frame.top));
}

void MXWindow::SetShape(const MAlphaMask& mask) {
    if (!connection.GetExtension(MXLibrary::Shape).isPresent) return;
    std::vector<xcb_rectangle_t> rectangles;
    for (const MRect& rect : MFindMaskRectangles(mask))
        rectangles.push_back({static_cast<int16_t>(rect.left), static_cast<int16_t>(rect.top),
                              static_cast<uint16_t>(rect.GetWidth()),
                              static_cast<uint16_t>(rect.GetHeight())});
    xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_YX_BANDED, id,
                         0, 0, static_cast<uint32_t>(rectangles.size()), rectangles.data());
}

void MXWindow::SetCursor(xcb_cursor_t cursor) {
    if (std::exchange(shownCursor, cursor) == cursor) return;
    xcb_change_window_attributes(connection, id, XCB_CW_CURSOR, &cursor);
    xcb_flush(connection);
}

void MXWindow::Put(const MControl& root, const MRect& newFrame) {
    if (newFrame.IsEmpty() || newFrame == frame) return;
    const bool isMoved = newFrame.GetTopLeft() != frame.GetTopLeft();
    const bool isSized = newFrame.GetWidth() != frame.GetWidth() || newFrame.GetHeight() != frame.GetHeight();
    frame = newFrame;
    TellSizes(root);
    std::array<uint32_t, 4> values;
    size_t count = 0;
    if (isMoved) {
        values[count++] = static_cast<uint32_t>(frame.left);
        values[count++] = static_cast<uint32_t>(frame.top);
    }
    if (isSized) {
        values[count++] = static_cast<uint32_t>(frame.GetWidth());
        values[count++] = static_cast<uint32_t>(frame.GetHeight());
    }
    constexpr uint16_t Place = XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y;
    constexpr uint16_t Size = XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT;
    const auto mask = static_cast<uint16_t>((isMoved ? Place : 0) | (isSized ? Size : 0));
    lastRequest = xcb_configure_window(connection, id, mask, values.data()).sequence;
    xcb_flush(connection);
}

bool MXWindow::TakeFrame(const xcb_configure_notify_event_t& event) {
    const uint32_t answered = reinterpret_cast<const xcb_generic_event_t&>(event).full_sequence;
    if (lastRequest != 0 && static_cast<int32_t>(answered - lastRequest) < 0) return false;
    frame = GetFrameOf(event);
    return true;
}

// What a manager sends tells places on the screen, what the server sends those in the parent.
MRect MXWindow::GetFrameOf(const xcb_configure_notify_event_t& event) const {
    const bool isSentByManager = (event.response_type & 0x80) != 0;
    MPoint origin{event.x, event.y};
    if (!isSentByManager && isReparented) {
        const auto request = xcb_translate_coordinates(connection, id, connection.GetRoot(), 0, 0);
        const MXReply<xcb_translate_coordinates_reply_t> reply(
            xcb_translate_coordinates_reply(connection, request, nullptr));
        if (reply) origin = {reply->dst_x, reply->dst_y};
    }
    return MRect::FromSize(origin.x, origin.y, event.width, event.height);
}

void MXWindow::Show(const MControl& root) {
    isPopup = root.Is(MControlFlag::CloseOnDeactivate);
    isUnmanaged = isPopup || !root.Is(MControlFlag::AcceptsFocus);
    const uint32_t overrides = isUnmanaged;
    xcb_change_window_attributes(connection, id, XCB_CW_OVERRIDE_REDIRECT, &overrides);
    TellManager(root);
    if (isUnmanaged) {
        const uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(connection, id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    }
    xcb_map_window(connection, id);
    isShown = true;
    xcb_flush(connection);
}

// A manager is told twice, since the window may be in the taskbar, where it is not on the screen (ICCCM
// 4.1.4).
void MXWindow::Hide() {
    isShown = false;
    xcb_unmap_window(connection, id);
    if (IsManaged()) {
        xcb_unmap_notify_event_t told{};
        told.response_type = XCB_UNMAP_NOTIFY;
        told.event = connection.GetRoot();
        told.window = id;
        xcb_send_event(connection, 0, connection.GetRoot(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&told));
    }
    xcb_flush(connection);
}

void MXWindow::Minimize() const {
    constexpr uint32_t Iconic = 3;
    connection.SendToManager(id, MXAtom::WMChangeState, {Iconic});
    xcb_flush(connection);
}

bool MXWindow::IsMinimized() const {
    constexpr uint32_t Iconic = 3;
    const MXProperty state = connection.GetProperty(id, connection[MXAtom::WMState]);
    return !state.GetWords().empty() && state.GetWords().front() == Iconic;
}

void MXWindow::Activate(xcb_window_t activeWindow) {
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection, id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    if (isUnmanaged) return;
    const MXProperty supported =
        connection.GetProperty(connection.GetRoot(), connection[MXAtom::NetSupported]);
    const bool isAsked =
        !isEmbedded && supported.GetWords().find(connection[MXAtom::NetActiveWindow]) != std::string::npos;
    constexpr uint32_t FromApplication = 1;
    if (isAsked)
        connection.SendToManager(id, MXAtom::NetActiveWindow, {FromApplication, display.time, activeWindow});
    else
        xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, id, display.time);
    xcb_flush(connection);
}

void MXWindow::Paint(MControl& root) {
    presenter->Finish();
    const std::shared_ptr<MWindowPainter> shared = painter;
    const MRect shown = shared->PaintWindow(root, std::exchange(dirty, MRect()));
    // The window may have ended in its paint.
    if (!shown.IsEmpty() && shared->GetBitmap()) presenter->Show(*shared->GetBitmap(), shown);
}

MDrawer& MXWindow::GetDrawer() {
    presenter->Finish();
    return painter->GetDrawer();
}
