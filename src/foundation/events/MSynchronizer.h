#pragma once

#include "foundation/base/MObject.h"

#include <cstdint>

/// What can be held by one thread and waited for by others. Every operation may be called from any thread.
class MSynchronizer : public MObject {
public:
    static constexpr int32_t Forever = -1;

    MSynchronizer() = default;
    MSynchronizer(const MSynchronizer&) = delete;
    MSynchronizer& operator=(const MSynchronizer&) = delete;
    ~MSynchronizer() override = default;

    /// Waits for at most `timeout` milliseconds. Returns 0 if it is now held, anything else on a time-out.
    [[nodiscard]] virtual int32_t Lock(int32_t timeout) = 0;
    virtual void Unlock() = 0;
};
