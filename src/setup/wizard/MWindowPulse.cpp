#include "setup/wizard/MWindowPulse.h"

#include "foundation/base/MGuard.h"
#include "ui/control/MControl.h"
#include "ui/control/windows/MWindows.h"

void MWindowPulse::Beat() {
    const auto now = std::chrono::steady_clock::now();
    MWindows* const windows = MWindows::GetInstance();
    if (!windows || now - last < Interval) return;
    for (MControl* root : windows->GetRoots())
        if (root->Is(MControlFlag::Visible)) root->RedrawNow();
    MGuard("MWindowPulse", [&] { (void)windows->GetSystem().ProcessPending(); });
    last = std::chrono::steady_clock::now();
}
