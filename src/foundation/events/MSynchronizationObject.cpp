#include "foundation/events/MSynchronizationObject.h"

#include "foundation/events/MLockGuard.h"
#include "foundation/events/MSystemThread.h"

int32_t MSynchronizationObject::Acquire(int32_t mode) {
    const MLockGuard guard(&lock);
    OnWait(mode);
    ++waiters;
    while (!CanEnter(mode)) {
        lock.Unlock();
        MSystemThread::YieldToOthers();
        // Waiting without a limit cannot fail.
        static_cast<void>(lock.Lock(MSynchronizer::Forever));
    }
    --waiters;
    OnEnter(mode);
    OnCancelWait(mode);
    return 0;
}

void MSynchronizationObject::Release(int32_t mode) {
    bool othersMayEnter = false;
    {
        const MLockGuard guard(&lock);
        othersMayEnter = OnLeave(mode) && waiters > 0;
    }
    if (othersMayEnter) MSystemThread::YieldToOthers();
}
