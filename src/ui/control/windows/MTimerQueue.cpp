#include "ui/control/windows/MTimerQueue.h"

#include "foundation/base/MGuard.h"
#include "ui/control/MRemoveFromList.h"

#include <algorithm>

MTimerQueue::~MTimerQueue() {
    for (MTimer* timer : timers) timer->queue = nullptr;
}

void MTimerQueue::Add(MTimer& timer, int32_t interval, int64_t now) {
    timer.interval = interval;
    timer.dueTime = now + interval;
    if (timer.queue) return;
    timer.queue = this;
    timers.Add(&timer);
}

void MTimerQueue::Remove(MTimer& timer) {
    MRemoveFromList(timers, &timer);
    timer.queue = nullptr;
}

MTimer* MTimerQueue::GetNext() const {
    const auto next = std::min_element(timers.begin(), timers.end(), [](const MTimer* a, const MTimer* b) {
        return a->dueTime < b->dueTime;
    });
    return next == timers.end() ? nullptr : *next;
}

void MTimerQueue::Run(int64_t now) {
    for (MTimer* timer = GetNext(); timer && timer->dueTime <= now; timer = GetNext()) {
        timer->dueTime = now + timer->interval;
        MGuard("MWindows::OnTimer", [&] { timer->OnTimer(); });
    }
}

std::optional<int64_t> MTimerQueue::GetNextDueTime() const {
    const MTimer* const next = GetNext();
    if (!next) return std::nullopt;
    return next->dueTime;
}
