#pragma once

#include "foundation/events/MSynchronizer.h"

/// Holds a synchronizer, which it does not own, from its construction to its end.
class MLockGuard final {
public:
    /// A null synchronizer passes. Raises "Could not acquire lock." (0) when `timeout` milliseconds run out.
    explicit MLockGuard(MSynchronizer* synchronizer, int32_t timeout = MSynchronizer::Forever);
    MLockGuard(const MLockGuard&) = delete;
    MLockGuard& operator=(const MLockGuard&) = delete;
    ~MLockGuard() {
        if (synchronizer) synchronizer->Unlock();
    }

private:
    MSynchronizer* const synchronizer;
};
