#pragma once

#include <cstdint>

class MTimerQueue;

/// A mixin for whatever is called back periodically, on the thread of the user interface.
class MTimer {
public:
    MTimer() = default;
    MTimer(const MTimer&) = delete;
    MTimer& operator=(const MTimer&) = delete;
    virtual ~MTimer() noexcept(false) { StopTimer(); }

    virtual void OnTimer() = 0;

    /// Calls `OnTimer` every so many milliseconds, at least 1, from now on; a call that is late is not made
    /// up for. Nothing happens in a program without windows.
    void StartTimer(int32_t milliseconds);
    void StopTimer();
    [[nodiscard]] bool IsTimerRunning() const { return queue != nullptr; }

private:
    friend class MTimerQueue;

    MTimerQueue* queue = nullptr;  ///< while it runs
    int32_t interval = 0;
    int64_t dueTime = 0;
};
