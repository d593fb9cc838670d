#include "ui/window/x11/MXDragFrame.h"

#include <algorithm>
#include <cstdint>

MXDragFrame::~MXDragFrame() {
    for (const xcb_window_t side : sides)
        if (side != XCB_WINDOW_NONE) xcb_destroy_window(connection, side);
}

void MXDragFrame::Toggle(const MRect& frame) {
    if (frame.IsEmpty()) return;
    if (sides.front() == XCB_WINDOW_NONE) {
        // White with a black border, so that it is seen over everything.
        const std::array<uint32_t, 3> values = {connection.GetScreen().white_pixel,
                                                connection.GetScreen().black_pixel, 1};
        for (xcb_window_t& side : sides) {
            side = xcb_generate_id(connection);
            xcb_create_window(connection, XCB_COPY_FROM_PARENT, side, connection.GetRoot(), 0, 0, 1, 1, 1,
                              XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                              XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT,
                              values.data());
        }
    }
    const bool isHidden = shown == frame;
    shown = isHidden ? MRect() : frame;
    const int32_t width = frame.GetWidth();
    const int32_t height = frame.GetHeight();
    const MRect places[] = {
        MRect::FromSize(frame.left, frame.top, width, Thickness),
        MRect::FromSize(frame.left, frame.bottom - Thickness + 1, width, Thickness),
        MRect::FromSize(frame.left, frame.top, Thickness, height),
        MRect::FromSize(frame.right - Thickness + 1, frame.top, Thickness, height),
    };
    for (size_t i = 0; i < sides.size(); ++i) {
        if (isHidden) {
            xcb_unmap_window(connection, sides[i]);
            continue;
        }
        // The border lies outside of a window's size.
        const MRect inside = places[i].Shrunk(1, 1);
        const std::array<uint32_t, 5> values = {
            static_cast<uint32_t>(places[i].left), static_cast<uint32_t>(places[i].top),
            static_cast<uint32_t>(std::max(inside.GetWidth(), 1)),
            static_cast<uint32_t>(std::max(inside.GetHeight(), 1)), XCB_STACK_MODE_ABOVE};
        xcb_configure_window(connection, sides[i],
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE,
                             values.data());
        xcb_map_window(connection, sides[i]);
    }
    xcb_flush(connection);
}
