#include "ui/window/x11/display/MXDisplay.h"

#include "ui/window/x11/MXWindow.h"

#include <algorithm>

MControl* MXDisplay::Find(xcb_window_t window) const {
    const auto found = std::ranges::find_if(
        roots, [&](const MControl* root) { return MXWindow::Of(*root)->GetId() == window; });
    return found == roots.end() ? nullptr : *found;
}
