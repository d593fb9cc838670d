#pragma once

#include "foundation/events/MSynchronizationObject.h"

/// Holds a synchronization object, which it does not own, in one mode from its construction to its end.
class MEmulatedLockGuard final {
public:
    /// A null object passes. Raises "Could not acquire emulated synchronization object." (0).
    MEmulatedLockGuard(MSynchronizationObject* object, int32_t mode);
    MEmulatedLockGuard(const MEmulatedLockGuard&) = delete;
    MEmulatedLockGuard& operator=(const MEmulatedLockGuard&) = delete;
    ~MEmulatedLockGuard() {
        if (object) object->Release(mode);
    }

private:
    MSynchronizationObject* const object;
    const int32_t mode;
};
