#include "ui/window/win32/MBackgroundWindow.h"

#include "foundation/base/MGuard.h"

#include <algorithm>
#include <utility>

namespace {

constexpr UINT WakeUpMessage = WM_APP;
constexpr UINT_PTR AlarmTimer = 1;

LARGE_INTEGER GetFrequency() {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return frequency;
}

}  // namespace

MBackgroundWindow::MBackgroundWindow(std::function<void()> attend)
    : attend(std::move(attend)),
      window(CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr)) {
    if (!window) MRaise(MExceptionGeneral, "Could not create temporary background window.");
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
}

MBackgroundWindow::~MBackgroundWindow() {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
}

// GetTickCount goes in steps of 16 milliseconds.
int64_t MBackgroundWindow::GetTime() {
    static const int64_t frequency = GetFrequency().QuadPart;
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return count.QuadPart / frequency * 1000 + count.QuadPart % frequency * 1000 / frequency;
}

void MBackgroundWindow::SetAlarm(std::optional<int64_t> time) {
    if (time == alarm) return;
    alarm = time;
    if (alarm)
        StartTimer();
    else
        KillTimer(window, AlarmTimer);
}

void MBackgroundWindow::StartTimer() {
    const int64_t wait = std::clamp<int64_t>(*alarm - GetTime(), USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
    SetTimer(window, AlarmTimer, static_cast<UINT>(wait), nullptr);
}

// The alarm stays until another is set, so that it also rings in a loop that a handler runs meanwhile.
void MBackgroundWindow::CheckAlarm() {
    if (alarm && GetTime() >= *alarm) Attend();
}

void MBackgroundWindow::WakeUp() {
    if (!isAwake.exchange(true) && !PostMessageW(window, WakeUpMessage, 0, 0)) isAwake = false;
}

void MBackgroundWindow::Attend() {
    MGuard("MWindows::Attend", attend);
}

LRESULT CALLBACK MBackgroundWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<MBackgroundWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || (message != WakeUpMessage && message != WM_TIMER))
        return DefWindowProcW(window, message, wParam, lParam);
    if (message == WakeUpMessage) {
        self->isAwake = false;
        self->Attend();
    } else {
        // Timers of the system may be early.
        if (self->alarm && GetTime() < *self->alarm) self->StartTimer();
        self->CheckAlarm();
    }
    return 0;
}
