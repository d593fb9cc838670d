#include "foundation/events/MThread.h"

#include "foundation/base/MGuard.h"
#include "foundation/events/MLockGuard.h"

namespace {

std::atomic<bool> isProcessEnding = false;

}  // namespace

void MThread::SetProcessEnding(bool isEnding) {
    isProcessEnding = isEnding;
}

MThread::~MThread() {
    const std::shared_ptr<MSystemThread> last = GetSystemThread();
    if (!last) return;
    RequestStop();
    // A thread that deletes itself is the one that runs here, unless it was never started.
    if (!selfDelete || !started) WaitForEnd(last);
}

void MThread::Create() {
    const MLockGuard guard(&mutex);
    if (system) return;
    system = std::make_shared<MSystemThread>(MThreadProc, this);
    if (priority != Priority::Normal) system->SetPriority(static_cast<int32_t>(priority));
}

void MThread::Start() {
    const MLockGuard guard(&mutex);
    {
        const MLockGuard stopGuard(&stopLock);
        stopRequested = false;
        // A signal that nobody slept on must not wake the next run; there may be none.
        static_cast<void>(stopSignal.Lock(0));
    }
    Create();
    started = true;
    result = NotFinished;
    system->Resume();
}

void MThread::RequestStop() {
    const MLockGuard guard(&stopLock);
    stopRequested = true;
    stopSignal.Unlock();
}

bool MThread::IsStopRequested() {
    const MLockGuard guard(&stopLock);
    return stopRequested;
}

bool MThread::SleepUntilStop(int32_t milliseconds) {
    return IsStopRequested() || (stopSignal.Lock(milliseconds) == 0 && IsStopRequested());
}

bool MThread::Wait() {
    const std::shared_ptr<MSystemThread> waited = GetSystemThread();
    if (!waited) return true;
    const bool ended = WaitForEnd(waited);
    if (ended && selfDelete && isProcessEnding) delete this;
    return ended;
}

bool MThread::WaitForEnd(const std::shared_ptr<MSystemThread>& waited) {
    if (isProcessEnding) {
        if (!waited->Terminate()) return false;
    } else {
        // A thread that was never started ends at once if it has been asked to.
        if (IsStopRequested()) waited->Resume();
        if (!waited->Wait()) return false;
    }
    CloseSystemThread(waited);
    return true;
}

void MThread::SetPriority(Priority newPriority) {
    const MLockGuard guard(&mutex);
    priority = newPriority;
    if (system) system->SetPriority(static_cast<int32_t>(priority));
}

int32_t MThread::MThreadProc(void* thread) {
    int32_t exitCode = -1;
    MGuard("MThreadProc", [&] {
        MThread& self = *static_cast<MThread*>(thread);
        if (self.IsStopRequested()) {
            exitCode = 0;
            return;
        }
        exitCode = self.Run();
    });
    return exitCode;
}

int32_t MThread::Run() {
    OnStart.Fire({this});
    const int32_t exitCode = Execute();
    result = exitCode;
    OnExecuted();
    if (MEventProcessor* const processor = target) OnFinish.Post(processor, {this});
    if (selfDelete) delete this;
    return exitCode;
}

std::shared_ptr<MSystemThread> MThread::GetSystemThread() {
    const MLockGuard guard(&mutex);
    return system;
}

void MThread::CloseSystemThread(const std::shared_ptr<MSystemThread>& closed) {
    const MLockGuard guard(&mutex);
    if (system == closed) system.reset();
}
