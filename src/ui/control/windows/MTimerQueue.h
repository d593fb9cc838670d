#pragma once

#include "foundation/base/MList.h"
#include "ui/control/windows/MTimer.h"

#include <optional>

/// The timers that run, by the clock of the window system, in milliseconds. They are not owned. Belongs to
/// the thread of the user interface.
class MTimerQueue final {
public:
    MTimerQueue() = default;
    MTimerQueue(const MTimerQueue&) = delete;
    MTimerQueue& operator=(const MTimerQueue&) = delete;
    ~MTimerQueue();

    /// A timer that runs already begins anew.
    void Add(MTimer& timer, int32_t interval, int64_t now);
    void Remove(MTimer& timer);
    /// Calls what is due, the longest due first and each timer once. Handlers may start and stop any timer,
    /// and end any.
    void Run(int64_t now);
    /// None if no timer runs.
    [[nodiscard]] std::optional<int64_t> GetNextDueTime() const;

private:
    [[nodiscard]] MTimer* GetNext() const;

    MList<MTimer, MListPointers> timers;
};
