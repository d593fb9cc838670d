#pragma once

#include "ui/window/x11/display/MXConnection.h"
#include "ui/window/x11/display/MXEventQueue.h"
#include "ui/window/x11/display/MXSettings.h"
#include "ui/window/x11/display/MXVisual.h"
#include "ui/window/x11/input/MXCursors.h"
#include "ui/window/x11/input/MXKeyboard.h"

#include <string>
#include <vector>

class MControl;

/// An open display: what there is once for all windows. Raises what its parts raise.
struct MXDisplay {
    explicit MXDisplay(const std::string& name) : connection(name) {}
    MXDisplay(const MXDisplay&) = delete;
    MXDisplay& operator=(const MXDisplay&) = delete;

    /// The root that has this window; null if that is another program's, or has ended.
    [[nodiscard]] MControl* Find(xcb_window_t window) const;

    const MXConnection connection;
    const MXVisual visual{connection};
    MXEventQueue queue{connection};
    MXSettings settings{connection};
    MXKeyboard keyboard{connection};
    MXCursors cursors{connection};

    std::vector<MControl*> roots;             ///< that have windows, not owned
    xcb_timestamp_t time = XCB_CURRENT_TIME;  ///< when the user last did something, by the server's clock
};
