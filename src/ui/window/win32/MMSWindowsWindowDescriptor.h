#pragma once

#include "foundation/win32/MWindowsHeader.h"
#include "ui/control/MControl.h"
#include "ui/window/MBackBuffer.h"
#include "ui/window/win32/MMessageLoopCounter.h"

#include <memory>

class MWindowSystemMSWindows;

/// What a root's window is to the platform; the root owns it while it has one.
class MMSWindowsWindowDescriptor final : public MObject {
public:
    /// Under this it is kept with the root: "WIND".
    static constexpr uint32_t Key = 0x444E4957;

    MMSWindowsWindowDescriptor(MWindowSystemMSWindows& system, std::weak_ptr<MMessageLoopCounter> loopCounter)
        : system(system), loopCounter(std::move(loopCounter)) {}

    [[nodiscard]] static MMSWindowsWindowDescriptor* Find(const MControl& root) {
        return root.GetProperty<MMSWindowsWindowDescriptor>(Key);
    }
    /// The handle of a root's window, or null.
    [[nodiscard]] static HWND FindHandle(const MControl& root) {
        const MMSWindowsWindowDescriptor* const descriptor = Find(root);
        return descriptor ? descriptor->window : nullptr;
    }

    MWindowSystemMSWindows& system;
    const std::weak_ptr<MMessageLoopCounter> loopCounter;
    /// A paint in progress holds it too, for its handlers may end the root.
    std::shared_ptr<MWindowPainter> painter = std::make_shared<MBackBuffer>();
    HWND window = nullptr;        ///< null once the system has destroyed it, with the one that it belonged to
    HWND nativeParent = nullptr;  ///< what it is embedded in, or belongs to if that is not ours
    MRect savedFrame;             ///< before it was maximized
    bool maximized = false;
    bool fullScreen = false;
    bool isReleasingCapture = false;  ///< the next loss of the mouse is our own doing
};
