#include "ui/control/windows/MTimer.h"

#include "ui/control/windows/MWindows.h"

#include <algorithm>

void MTimer::StartTimer(int32_t milliseconds) {
    MWindows* const windows = MWindows::GetInstance();
    if (!windows) return;
    windows->GetTimers().Add(*this, std::max(milliseconds, 1), windows->GetSystem().GetTime());
    windows->UpdateAlarm();
}

void MTimer::StopTimer() {
    if (!queue) return;
    queue->Remove(*this);
    if (MWindows* const windows = MWindows::GetInstance()) windows->UpdateAlarm();
}
