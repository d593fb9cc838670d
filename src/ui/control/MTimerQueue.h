#pragma once

#include "foundation/base/MList.h"
#include "ui/control/MTimer.h"

#include <optional>

/// The timers that run, by the clock of the window system, in milliseconds. Belongs to the thread of the user
/// interface.
class MTimerQueue final {
public:
    void Add(MTimer& timer, int32_t interval, int64_t now);
    void Remove(MTimer& timer);
    /// Calls what is due, each timer once. Handlers may start and stop any timer, and end any.
    void Run(int64_t now);
    /// None if no timer runs.
    [[nodiscard]] std::optional<int64_t> GetNextDueTime() const;

private:
    MList<MTimer, MListPointers> timers;
};
