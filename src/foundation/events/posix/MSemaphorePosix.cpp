#include "foundation/events/MSemaphore.h"

#include <chrono>
#include <condition_variable>
#include <limits>
#include <mutex>

struct MSemaphore::System {
    std::mutex mutex;
    std::condition_variable released;
    int32_t entries = 0;
};

MSemaphore::MSemaphore(bool autoReset) : system(std::make_shared<System>()), autoReset(autoReset) {}

MSemaphore::~MSemaphore() = default;

bool MSemaphore::Take(int32_t timeout) {
    // A thread that is stopped hard never leaves: what it waits in stays, and nobody waits for its end.
    const std::shared_ptr<System> held = system;
    std::unique_lock guard(held->mutex);
    const auto hasEntry = [&held] { return held->entries > 0; };
    if (timeout < 0)
        held->released.wait(guard, hasEntry);
    else if (!held->released.wait_for(guard, std::chrono::milliseconds(timeout), hasEntry))
        return false;
    --held->entries;
    return true;
}

void MSemaphore::Unlock() {
    const std::lock_guard guard(system->mutex);
    if (system->entries < std::numeric_limits<int32_t>::max()) ++system->entries;
    system->released.notify_one();
}
