#pragma once

#include "foundation/events/MEventTarget.h"

/// Lets go of the event lock, which its thread holds, while a handler runs.
class MEventUnlock final {
public:
    MEventUnlock() { MEventLock().Unlock(); }
    MEventUnlock(const MEventUnlock&) = delete;
    MEventUnlock& operator=(const MEventUnlock&) = delete;
    ~MEventUnlock() { static_cast<void>(MEventLock().Lock(MSynchronizer::Forever)); }
};
