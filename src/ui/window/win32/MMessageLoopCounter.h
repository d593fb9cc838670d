#pragma once

#include "foundation/base/MException.h"

#include <cstdint>
#include <memory>

/// How deep messages are nested: handlers of messages may let others be handled. It exists for as long as the
/// window system is open.
class MMessageLoopCounter final {
public:
    /// Deeper than that, messages wait until handlers have returned, or the stack would run out.
    static constexpr int32_t Deepest = 100;

    [[nodiscard]] bool IsTooDeep() const { return depth >= Deepest; }

    /// One level.
    class Scope final {
    public:
        /// Raises "MessageLoopCounter not available." (0) after the window system has been closed.
        explicit Scope(const std::weak_ptr<MMessageLoopCounter>& counter) : counter(counter.lock()) {
            if (!this->counter) MRaise(MExceptionGeneral, "MessageLoopCounter not available.");
            ++this->counter->depth;
        }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope() { --counter->depth; }

    private:
        const std::shared_ptr<MMessageLoopCounter> counter;
    };

private:
    int32_t depth = 0;
};
