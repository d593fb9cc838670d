#pragma once

#include "foundation/events/MLock.h"
#include "foundation/events/MSemaphore.h"
#include "install/engine/MInstallViews.h"
#include "ui/control/windows/MTimer.h"

#include <functional>

/// Brings what a worker shows and asks to views in the thread of the windows. Of what it shows the last counts, and it
/// does not wait for it; whoever asks waits for the answer. Once the windows are gone nobody answers: then questions
/// are refused.
class MWorkerViews final : private MTimer {
public:
    /// The views are not owned; what is missing among them the worker has not either.
    explicit MWorkerViews(const MInstallViews& shown);
    /// The worker has ended.
    ~MWorkerViews() noexcept(false) override;

    /// For the worker. They live as long as this object.
    [[nodiscard]] MInstallViews GetViews();

    // In the thread of the windows.
    void Begin() { StartTimer(Interval); }
    /// Shows what is left to be shown, and refuses what is asked from now on.
    void End();

private:
    class Text;
    class Bar;
    class Dialogs;
    using Question = std::function<void(MUserDialogs& dialogs)>;

    static constexpr int32_t Interval = 30;  ///< between two looks at what there is to show, in milliseconds

    void OnTimer() override;
    void Show();
    void Answer();

    const MInstallViews shown;
    MLock lock;
    MSemaphore answered;
    const Question* question = nullptr;  ///< of the worker that waits; guarded by `lock`, as what follows
    bool isOver = false;
    const std::unique_ptr<Text> infoText;
    const std::unique_ptr<Text> fileText;
    const std::unique_ptr<Bar> fileBar;
    const std::unique_ptr<Bar> totalBar;
    const std::unique_ptr<Dialogs> dialogs;
};
