#pragma once

#include "ui/control/MControl.h"

/// Takes a flag off a control at the end of a block, however that ends, if the control is still there.
class MFlagScope final {
public:
    MFlagScope(MControl& control, MControlFlag flag) : control(&control), flag(flag) {}
    MFlagScope(const MFlagScope&) = delete;
    MFlagScope& operator=(const MFlagScope&) = delete;
    ~MFlagScope() {
        if (control) control->Set(flag, false);
    }

private:
    const MControlRef control;
    const MControlFlag flag;
};
