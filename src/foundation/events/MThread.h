#pragma once

#include "foundation/events/MEvent.h"
#include "foundation/events/MLock.h"
#include "foundation/events/MMutex.h"
#include "foundation/events/MOnThreadNotifyParams.h"
#include "foundation/events/MSemaphore.h"
#include "foundation/events/MSystemThread.h"
#include "foundation/values/MValueEnum.h"

#include <atomic>
#include <cstdint>
#include <memory>

/// Work on a thread of its own. It reports by posted events only.
///
/// A derived class whose members `Execute` uses requests the stop and waits in its own destructor, since
/// they are gone when the destructor of this class does so. Unless said otherwise the operations may be
/// called from any thread.
class MThread : public MObject {
public:
    enum class Priority : int32_t { Idle, Lowest, Low, Normal, High, Highest, Critical };
    using Event = MEvent<MOnThreadNotifyParams, MHandlerNoAdditionals>;

    /// The result of a thread that has not finished.
    static constexpr int32_t NotFinished = INT32_MIN;

    MThread() = default;
    MThread(const MThread&) = delete;
    MThread& operator=(const MThread&) = delete;
    /// Requests the stop and waits, but for a thread that deletes itself.
    ~MThread() override;

    /// Makes the system's thread, suspended, if there is none. Raises "Could not create system thread." (0).
    void Create();
    /// Runs the body. A thread that has finished can be started again after `Wait`.
    /// Raises "Could not create system thread." (0).
    void Start();
    /// Asks the body to end, and wakes it if it sleeps.
    void RequestStop();
    [[nodiscard]] bool IsStopRequested();
    /// Waits without a limit for the end. True as well if there is no thread; false for the thread itself.
    /// While the process ends the thread is stopped hard instead, and an object that deletes itself is gone
    /// afterwards.
    bool Wait();
    /// Whether the process is ending from inside an entry of a library or of the runtime, where no thread can
    /// be waited for.
    static void SetProcessEnding(bool isEnding);
    /// Takes effect at once, or when the thread is made.
    void SetPriority(Priority priority);

    /// What `Execute` returned, or `NotFinished`; 0 before the first start.
    [[nodiscard]] int32_t GetResult() const { return result; }
    /// The thread deletes the object, made with `new`, at its end. To be set before the start. What is still
    /// queued in its events then goes with it.
    void SetSelfDelete(bool deletesItself) { selfDelete = deletesItself; }
    /// Where `OnFinish` is posted; not owned. It outlives the thread or is taken back by a null one.
    void SetTarget(MEventProcessor* processor) { target = processor; }

    /// Fired on the thread itself before `Execute`.
    Event OnStart;
    /// Posted to the target, if there is one, after the end of `Execute`.
    Event OnFinish;

protected:
    /// The body; returns the exit code. What is thrown out of it ends the thread in silence: it never
    /// counts as finished, `OnFinish` is not posted and the object does not delete itself.
    virtual int32_t Execute() = 0;
    /// Called on the thread after `Execute` has returned.
    virtual void OnExecuted() {}
    /// Sleeps for at most `milliseconds` (-1: without a limit). True if it was woken by a request to stop.
    bool SleepUntilStop(int32_t milliseconds);

private:
    static int32_t MThreadProc(void* thread);
    [[nodiscard]] int32_t Run();
    bool WaitForEnd(const std::shared_ptr<MSystemThread>& waited);
    [[nodiscard]] std::shared_ptr<MSystemThread> GetSystemThread();
    void CloseSystemThread(const std::shared_ptr<MSystemThread>& closed);

    std::shared_ptr<MSystemThread> system;
    std::atomic<int32_t> result = 0;
    std::atomic<bool> selfDelete = false;
    bool started = false;
    Priority priority = Priority::Normal;
    MLock stopLock;
    bool stopRequested = false;
    MSemaphore stopSignal{true};
    MMutex mutex;
    std::atomic<MEventProcessor*> target = nullptr;
};

inline constexpr const char* MThreadPriorityNames[] = {"Idle", "Lowest",  "Low",     "Normal",
                                                       "High", "Highest", "Critical"};
template <>
inline constexpr std::span<const char* const> MEnumNames<MThread::Priority> = MThreadPriorityNames;
