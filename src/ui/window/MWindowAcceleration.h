#pragma once

#include "ui/window/MWindowPainter.h"

#include <cstdint>
#include <memory>

/// A window as its platform knows it.
struct MNativeWindow {
    void* connection = nullptr;  ///< X: the `xcb_connection_t`
    intptr_t handle = 0;         ///< X: the window; Win32: the HWND
    uint32_t visual = 0;         ///< X: that of the window
};

/// Gives windows painters that are faster than memory and processor, as on a graphics card.
class MWindowAcceleration : public MObject {
public:
    /// A painter for a window that has just been made; null if it is to be painted in memory. Raises nothing.
    [[nodiscard]] virtual std::shared_ptr<MWindowPainter> CreatePainter(const MNativeWindow& window) = 0;
};
