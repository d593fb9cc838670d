#include "ui/window/MNativeWindowSystem.h"

#include "ui/window/win32/MWindowSystemMSWindows.h"

#include <utility>

// There is one desktop for a process.
std::unique_ptr<MWindowSystem> MCreateNativeWindowSystem(const MString&,
                                                         std::unique_ptr<MWindowAcceleration> acceleration) {
    return std::make_unique<MWindowSystemMSWindows>(std::move(acceleration));
}
