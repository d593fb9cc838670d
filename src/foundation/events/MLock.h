#pragma once

#include "foundation/events/MSynchronizer.h"

#include <memory>

/// A critical section: the cheapest lock between the threads of one process. Its owner may lock it again,
/// and unlocks it as often.
class MLock final : public MSynchronizer {
public:
    MLock();
    ~MLock() override;

    /// `Forever` waits, 0 tries once. A positive time-out tries `timeout` + 1 times, a millisecond apart.
    /// Anything below `Forever` fails at once.
    [[nodiscard]] int32_t Lock(int32_t timeout) override;
    void Unlock() override;

private:
    struct System;

    void Enter();
    [[nodiscard]] bool TryEnter();
    [[nodiscard]] bool TryRepeatedly(int32_t rounds);

    const std::unique_ptr<System> system;
};
