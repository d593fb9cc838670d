#pragma once

#include "foundation/events/MSynchronizer.h"

#include <memory>

/// A semaphore of the system: `Lock` takes one of the entries that `Unlock` has released, none at first and
/// 2,147,483,647 at most; a release beyond that is dropped.
class MSemaphore final : public MSynchronizer {
public:
    MSemaphore() : MSemaphore(false) {}
    /// With `autoReset` a successful `Lock` takes every entry there is, so that many releases wake once.
    explicit MSemaphore(bool autoReset);
    ~MSemaphore() override;

    /// Any negative time-out waits forever.
    [[nodiscard]] int32_t Lock(int32_t timeout) override;
    /// Releases one entry; the caller need not have taken one.
    void Unlock() override;

private:
    struct System;

    [[nodiscard]] bool Take(int32_t timeout);

    const std::shared_ptr<System> system;
    const bool autoReset;
};
