#pragma once

#include <atomic>
#include <functional>
#include <memory>

/// Work on a thread of its own that nobody has to wait for: a folder of a volume that does not answer may keep it for
/// ever. The work touches only what it owns together with others. What it throws ends it.
class MBackgroundTask final {
public:
    /// Starts at once. Where there is no thread to be had, the work is done on return.
    explicit MBackgroundTask(std::function<void()> work);

    [[nodiscard]] bool IsDone() const { return *isDone; }
    /// Waits for so many milliseconds at most. Returns whether it is done.
    bool WaitFor(int32_t milliseconds) const;

private:
    std::shared_ptr<std::atomic<bool>> isDone = std::make_shared<std::atomic<bool>>(false);
};
