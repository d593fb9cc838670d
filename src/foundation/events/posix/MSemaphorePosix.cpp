#include "foundation/events/MSemaphore.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <limits>
#include <mutex>

struct MSemaphore::System {
    std::mutex mutex;
    std::condition_variable released;
    int32_t entries = 0;
    std::atomic<int32_t> waiting = 0;  ///< threads that have not left `Take`
};

MSemaphore::MSemaphore(bool autoReset) : system(std::make_unique<System>()), autoReset(autoReset) {}

MSemaphore::~MSemaphore() {
    // A thread that was stopped hard never leaves, and destroying what it waits in would wait for that.
    if (system->waiting > 0) static_cast<void>(system.release());
}

bool MSemaphore::Take(int32_t timeout) {
    ++system->waiting;
    std::unique_lock guard(system->mutex);
    const auto hasEntry = [this] { return system->entries > 0; };
    if (timeout < 0)
        system->released.wait(guard, hasEntry);
    else
        system->released.wait_for(guard, std::chrono::milliseconds(timeout), hasEntry);
    --system->waiting;
    if (!hasEntry()) return false;
    --system->entries;
    return true;
}

void MSemaphore::Unlock() {
    const std::lock_guard guard(system->mutex);
    if (system->entries < std::numeric_limits<int32_t>::max()) ++system->entries;
    system->released.notify_one();
}
