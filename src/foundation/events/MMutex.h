#pragma once

#include "foundation/events/MSynchronizer.h"

#include <memory>

/// A mutex of the system, without a name and free at first. Its owner may lock it again. A mutex whose owner
/// ended without unlocking goes to the next that waits; one that the system could not make always locks.
class MMutex final : public MSynchronizer {
public:
    MMutex();
    ~MMutex() override;

    /// Any negative time-out waits forever.
    [[nodiscard]] int32_t Lock(int32_t timeout) override;
    void Unlock() override;

private:
    struct System;

    const std::unique_ptr<System> system;
};
