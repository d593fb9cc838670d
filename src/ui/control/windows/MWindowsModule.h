#pragma once

#include "foundation/module/MModule.h"
#include "ui/control/windows/MTimer.h"

/// The module of a program with windows.
class MWindowsModule : public MModule, public MTimer {
public:
    MWindowsModule() = default;
    ~MWindowsModule() override = default;

    void OnTimer() override {}
};
