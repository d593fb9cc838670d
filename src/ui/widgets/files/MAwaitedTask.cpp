#include "ui/widgets/files/MAwaitedTask.h"

#include <utility>

void MAwaitedTask::Begin(const std::function<void()>& work, std::function<void()> onDone) {
    Cancel();
    tell = std::move(onDone);
    task.emplace(work);
    if (task->WaitFor(Patience))
        OnTimer();
    else
        StartTimer(Interval);
}

void MAwaitedTask::Cancel() {
    StopTimer();
    task.reset();
    tell = nullptr;
}

void MAwaitedTask::OnTimer() {
    if (!task || !task->IsDone()) return;
    const std::function<void()> done = std::exchange(tell, nullptr);
    Cancel();
    done();
}
