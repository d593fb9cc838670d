#pragma once

#include "foundation/base/MObject.h"
#include "ui/window/MBackBuffer.h"

#include <memory>

/// The window of a root in memory, kept with the root.
struct MHeadlessWindow final : public MObject {
    static constexpr uint32_t Key = 0x484C5357;  // "HLSW"

    [[nodiscard]] static MHeadlessWindow* Of(const MControl& root) {
        return root.GetProperty<MHeadlessWindow>(Key);
    }

    MRect frame;       ///< on the screen
    MRect savedFrame;  ///< before it was maximized
    bool isVisible = false;
    bool isMaximized = false;
    bool isMinimized = false;
    bool isLoopEnding = false;
    bool isLeaveTracked = false;
    MRect updateRect;  ///< what the platform would have painted soon, in the window's coordinates
    const std::shared_ptr<MBackBuffer> backBuffer = std::make_shared<MBackBuffer>();
    MBitmap picture;  ///< what the window shows
    MCursor cursor;
};
