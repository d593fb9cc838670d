#pragma once

#include "ui/control/windows/MWindowSystem.h"
#include "ui/window/MWindowAcceleration.h"

#include <memory>

/// The window system of the machine that the program runs on, still closed. `display` names it where there
/// can be several; empty for the usual one. Without an acceleration all windows are painted in memory.
[[nodiscard]] std::unique_ptr<MWindowSystem> MCreateNativeWindowSystem(
    const MString& display = MString(), std::unique_ptr<MWindowAcceleration> acceleration = nullptr);
