#pragma once

#include <cstdint>
#include <memory>

/// A thread of the system, made suspended and with the default stack. The object is a handle: when it ends, a
/// thread that runs goes on, and one that was never resumed runs its body nevertheless, so that it can end.
class MSystemThread final {
public:
    using Body = int32_t (*)(void* argument);

    /// Raises "Could not create system thread." (0).
    MSystemThread(Body body, void* argument);
    MSystemThread(const MSystemThread&) = delete;
    MSystemThread& operator=(const MSystemThread&) = delete;
    ~MSystemThread();

    /// Lets the body run; a thread that is not suspended is left as it is.
    void Resume();
    /// Waits without a limit for the end of the body. False for the thread itself. Several threads may wait.
    [[nodiscard]] bool Wait();
    /// Stops the thread wherever it is, with exit code -1. It lets go of nothing: only for a process that
    /// ends. False for the thread itself, which goes on.
    [[nodiscard]] bool Terminate();
    /// `level` from 0, idle, to 6, critical. What the system refuses is left as it is.
    void SetPriority(int32_t level);

    /// Gives the rest of the calling thread's time to others.
    static void YieldToOthers();

private:
    struct System;

    const std::unique_ptr<System> system;
};
