#include "bench/MComparison.h"
#include "foundation/base/MException.h"
#include "foundation/events/MEvent.h"
#include "foundation/events/MLock.h"
#include "foundation/events/MOnNotifyParams.h"

#include <benchmark/benchmark.h>
#include <deque>
#include <future>
#include <mutex>
#include <thread>

namespace {

constexpr int32_t EventCount = 1'000'000;
constexpr int32_t LockCount = 10'000'000;
/// Posted before they are dispatched, as by a worker that is a little ahead.
constexpr int32_t BatchSize = 100;
constexpr int Rounds = 11;

/// A thread that does nothing. Locks are made for programs with several, and the runtime library takes a
/// short cut in those with one.
class IdleThread {
public:
    IdleThread() : thread([this] { end.get_future().wait(); }) {}
    IdleThread(const IdleThread&) = delete;
    IdleThread& operator=(const IdleThread&) = delete;
    ~IdleThread() {
        end.set_value();
        thread.join();
    }

private:
    std::promise<void> end;
    std::thread thread;
};

class Counter final : public MEventTarget {
public:
    void Count(const MOnNotifyParams&) { ++count; }

    int32_t count = 0;
};

int32_t PostEvents() {
    Counter counter;
    MEventProcessor processor;
    MEvent<MOnNotifyParams> event;
    event.Connect(&counter, &Counter::Count);
    for (int32_t done = 0; done < EventCount; done += BatchSize) {
        for (int32_t i = 0; i < BatchSize; ++i) event.Post(&processor, {});
        (void)processor.DispatchPending();
    }
    return counter.count;
}

/// What a program without events would do: parameters in a queue, guarded by a mutex, and a method for each.
int32_t PassThroughQueue() {
    Counter counter;
    std::mutex mutex;
    std::deque<MOnNotifyParams> queue;
    for (int32_t done = 0; done < EventCount; done += BatchSize) {
        for (int32_t i = 0; i < BatchSize; ++i) {
            const std::lock_guard guard(mutex);
            queue.push_back({});
        }
        for (int32_t i = 0; i < BatchSize; ++i) {
            std::unique_lock guard(mutex);
            const MOnNotifyParams params = queue.front();
            queue.pop_front();
            guard.unlock();
            counter.Count(params);
            benchmark::ClobberMemory();
        }
    }
    return counter.count;
}

MComparison CompareEvents() {
    const IdleThread other;
    int32_t ours = 0;
    int32_t reference = 0;
    MComparison comparison =
        MCompareSpeeds(Rounds, MClock::Processor, EventCount / 1e6, {{}, [&] { ours = PostEvents(); }},
                       {{}, [&] { reference = PassThroughQueue(); }});
    if (ours != EventCount || reference != EventCount) MRaise(MExceptionGeneral, "Events were lost.");
    comparison.unit = "million/s";
    comparison.goal = 0.2;
    return comparison;
}

template <class Lock, class Unlock>
void LockOften(Lock lock, Unlock unlock) {
    for (int32_t i = 0; i < LockCount; ++i) {
        lock();
        benchmark::ClobberMemory();
        unlock();
    }
}

MComparison CompareLocks() {
    const IdleThread other;
    MLock ours;
    std::mutex reference;
    MComparison comparison = MCompareSpeeds(
        Rounds, MClock::Processor, LockCount / 1e6,
        {{}, [&] { LockOften([&] { (void)ours.Lock(MLock::Forever); }, [&] { ours.Unlock(); }); }},
        {{}, [&] { LockOften([&] { reference.lock(); }, [&] { reference.unlock(); }); }});
    comparison.unit = "million/s";
    comparison.goal = 0.5;
    return comparison;
}

[[maybe_unused]] const bool isRegistered =
    MRegisterComparison("Events, posted and dispatched", CompareEvents) &&
    MRegisterComparison("MLock, uncontended", CompareLocks);

}  // namespace
