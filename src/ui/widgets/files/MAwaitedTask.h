#pragma once

#include "ui/control/windows/MTimer.h"
#include "ui/widgets/files/MBackgroundTask.h"

#include <cstdint>
#include <functional>
#include <optional>

/// A background task whose end is told of on the thread of the window: before `Begin` returns if that comes within a
/// moment, else later, from a timer. One that is dropped, by the next one or by the end of the owner, is not told of,
/// however long it takes.
class MAwaitedTask final : private MTimer {
public:
    /// How long `Begin` keeps the caller, in milliseconds.
    static constexpr int32_t Patience = 30;

    /// `onDone` may end the owner.
    void Begin(const std::function<void()>& work, std::function<void()> onDone);
    void Cancel();
    [[nodiscard]] bool IsRunning() const { return task.has_value(); }

private:
    static constexpr int32_t Interval = 20;  ///< between two looks whether it is done, in milliseconds

    void OnTimer() override;

    std::optional<MBackgroundTask> task;
    std::function<void()> tell;
};
