#include "ui/widgets/files/MBackgroundTask.h"

#include "foundation/base/MGuard.h"
#include "foundation/events/MThread.h"
#include "foundation/module/MPlatform.h"

#include <utility>

namespace {

constexpr const char* Label = "MBackgroundTask";

class TaskThread final : public MThread {
public:
    TaskThread(std::function<void()> work, std::shared_ptr<std::atomic<bool>> isDone)
        : work(std::move(work)), isDone(std::move(isDone)) {
        SetSelfDelete(true);
    }

protected:
    int32_t Execute() override {
        MGuard(Label, work);
        *isDone = true;
        return 0;
    }

private:
    const std::function<void()> work;
    const std::shared_ptr<std::atomic<bool>> isDone;
};

}  // namespace

MBackgroundTask::MBackgroundTask(std::function<void()> work) {
    auto thread = std::make_unique<TaskThread>(work, isDone);
    if (MGuard(Label, [&] { thread->Start(); })) {
        (void)thread.release();
        return;
    }
    MGuard(Label, work);
    *isDone = true;
}

bool MBackgroundTask::WaitFor(int32_t milliseconds) const {
    for (int32_t waited = 0; waited < milliseconds && !IsDone(); ++waited) MPlatform::Sleep(1);
    return IsDone();
}
