#pragma once

#include "ui/control/windows/MWindowSystem.h"

#include <memory>

/// The window system of the machine that the program runs on, still closed. `display` names it where there
/// can be several; empty for the usual one.
[[nodiscard]] std::unique_ptr<MWindowSystem> MCreateNativeWindowSystem(const MString& display = MString());
