#pragma once

#include "foundation/base/MObject.h"
#include "foundation/events/MLock.h"

/// The frame for locks whose logic is a test of their state. A waiter tests again and again under the inner
/// lock and yields its thread in between. What the modes mean is up to the derived class, whose operations
/// are all called under the inner lock.
class MSynchronizationObject : public MObject {
public:
    MSynchronizationObject() = default;
    MSynchronizationObject(const MSynchronizationObject&) = delete;
    MSynchronizationObject& operator=(const MSynchronizationObject&) = delete;
    ~MSynchronizationObject() override = default;

    /// Waits without a limit until the calling thread may enter in `mode`. Returns 0 if it has.
    [[nodiscard]] int32_t Acquire(int32_t mode);
    /// Leaves what the calling thread has acquired in `mode`.
    void Release(int32_t mode);

protected:
    virtual void OnWait(int32_t mode) = 0;
    [[nodiscard]] virtual bool CanEnter(int32_t mode) = 0;
    virtual void OnEnter(int32_t mode) = 0;
    /// Takes back what `OnWait` did.
    virtual void OnCancelWait(int32_t mode) = 0;
    /// Returns true if nothing is held any more.
    [[nodiscard]] virtual bool OnLeave(int32_t mode) = 0;

private:
    MLock lock;
    int32_t waiters = 0;
};
