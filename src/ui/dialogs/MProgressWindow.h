#pragma once

#include "foundation/events/MLock.h"
#include "foundation/events/MThread.h"
#include "ui/control/windows/MTimer.h"
#include "ui/dialogs/MDialogWindow.h"

#include <atomic>
#include <functional>

class MProgressBar;
class MStatic;

/// Shows how far a worker is that runs beside it, on a thread of its own, and lets the user cancel it.
class MProgressWindow : public MDialogWindow, public MTimer {
public:
    using Worker = std::function<void(MProgressWindow& progress)>;

    explicit MProgressWindow(const MString& caption = "Wait please...");

    /// Runs a worker until it is done (`Ok`) or, asked for by the user, has stopped (`Cancel`); `None` if the
    /// display was lost meanwhile, which cancels, too. Raises what the worker raises otherwise, and what making a thread raises. Without windows it runs the worker
    /// alone.
    MModalValue Run(MControl* owner, Worker worker);
    /// Shows it beside work in the thread of the windows, which calls `Refresh` and cannot be cancelled. Whoever
    /// ends the window closes it.
    void ShowBesideWork(MControl* owner);
    /// Shows what was set.
    void Refresh();

    // What the worker calls, from its thread. Once the user has cancelled, each of these raises "Processing
    // has been cancelled." (0), which the worker lets pass.
    /// 0 to 100.
    void SetProgress(double percent);
    void SetInfo(const MString& text);
    /// Beside the times.
    void SetCustomStatistics(const MString& text);
    void CheckCancelled() const;
    [[nodiscard]] bool IsCancelled() const { return isCancelled; }

    void SetImage(MStdBitmap bitmap);
    /// Whether the user is asked before the worker is stopped.
    bool asksBeforeCancel = false;

    bool CanClose() override;
    void OnTimer() override { Refresh(); }
    void GetMinimalContentSize(int32_t& x, int32_t& y) override;

private:
    class WorkerThread;

    /// What the worker has told.
    struct State {
        double percent = 0;
        MString info;
        MString customStatistics;
    };

    void OnCancel(const MOnClickParams&) { (void)CanClose(); }
    void OnFinished(const MOnThreadNotifyParams& params);
    [[nodiscard]] MString GetStatistics(double percent) const;

    // Children.
    MStatic* image;
    MStatic* statistics;
    MStatic* customStatistics;
    MStatic* info;
    MProgressBar* bar;
    MButton* cancelButton;

    mutable MLock lock;  ///< of `state`
    State state;
    std::atomic<bool> isCancelled = false;
    bool canBeCancelled = true;
    int64_t startTime = 0;  ///< in milliseconds
};
