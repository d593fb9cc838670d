#pragma once

#include "ui/control/MControl.h"
#include "ui/drawing/MDrawerToMBitmap.h"

/// The picture of a window, from which the platform shows it: opaque, as large as the root.
class MBackBuffer final {
public:
    /// Paints what is dirty of the root. Returns what has to be shown now: `rect`, or, when the root has
    /// another size than the buffer had, the whole window; nothing if the window has ended in a paint. In
    /// window coordinates. Handlers may end the root, so the caller shares the buffer for so long.
    [[nodiscard]] MRect PaintWindow(MControl& root, const MRect& rect);

    [[nodiscard]] MBitmap& GetBitmap() { return backBuffer; }
    [[nodiscard]] MDrawer& GetDrawer() { return drawer; }

private:
    MBitmap backBuffer;
    MDrawerToMBitmap drawer;
};
