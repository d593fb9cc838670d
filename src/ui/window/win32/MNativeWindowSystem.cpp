#include "ui/window/MNativeWindowSystem.h"

#include "ui/window/win32/MWindowSystemMSWindows.h"

// There is one desktop for a process.
std::unique_ptr<MWindowSystem> MCreateNativeWindowSystem(const MString&) {
    return std::make_unique<MWindowSystemMSWindows>();
}
