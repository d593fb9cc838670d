#pragma once

#include "ui/geometry/MRect.h"
#include "ui/window/x11/display/MXConnection.h"

#include <array>

/// The outline of a window to be, made of four thin windows: what is drawn on the desktop itself is hidden by
/// the desktops that compose their windows.
class MXDragFrame {
public:
    explicit MXDragFrame(const MXConnection& connection) : connection(connection) {}
    MXDragFrame(const MXDragFrame&) = delete;
    MXDragFrame& operator=(const MXDragFrame&) = delete;
    ~MXDragFrame();

    /// Shows the frame, or hides it if it is the one that is shown.
    void Toggle(const MRect& frame);

private:
    static constexpr int32_t Thickness = 4;

    const MXConnection& connection;
    std::array<xcb_window_t, 4> sides{};  ///< none until a frame is first shown
    MRect shown;
};
