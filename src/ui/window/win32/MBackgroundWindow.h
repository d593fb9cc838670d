#pragma once

#include "foundation/win32/MWindowsHeader.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>

/// The hidden window by which time and other threads reach the thread of the user interface, also while not
/// our loop runs but one of the system (a menu, a window being moved) or of a program that we are embedded
/// in. Without an alarm and a wake-up it causes no message.
class MBackgroundWindow final {
public:
    /// `attend` is called after `WakeUp`, and at the time of the alarm, whereupon it sets the next one or
    /// none. Raises "Could not create temporary background window." (0).
    explicit MBackgroundWindow(std::function<void()> attend);
    MBackgroundWindow(const MBackgroundWindow&) = delete;
    MBackgroundWindow& operator=(const MBackgroundWindow&) = delete;
    ~MBackgroundWindow();

    [[nodiscard]] HWND GetWindow() const { return window; }

    /// Milliseconds since some moment; never backwards.
    [[nodiscard]] static int64_t GetTime();
    void SetAlarm(std::optional<int64_t> time);
    /// For loops of ours, after each message: messages of timers come last of all, so an alarm could wait for
    /// as long as there are others.
    void CheckAlarm();
    /// From any thread.
    void WakeUp();

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void StartTimer();
    void Attend();

    const std::function<void()> attend;
    HWND window;
    std::optional<int64_t> alarm;
    std::atomic<bool> isAwake = false;  ///< a wake-up is on its way
};
