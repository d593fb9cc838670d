#include "ui/dialogs/MProgressWindow.h"

#include "foundation/events/MLockGuard.h"
#include "foundation/text/MMeasureText.h"
#include "foundation/text/MStringFormatter.h"
#include "ui/control/windows/MWindows.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/layout/MLayoutClient.h"
#include "ui/layout/MLayoutSide.h"
#include "ui/widgets/content/MPanelGradient.h"
#include "ui/widgets/content/MStatic.h"
#include "ui/widgets/values/MProgressBar.h"

#include <algorithm>

namespace {

constexpr int32_t RefreshTime = 100;  ///< in milliseconds

/// What stops the worker.
class Cancelled final : public MException {
public:
    Cancelled() : MException(MString(), MTranslate("Processing has been cancelled."), MExceptionGeneral) {}
};

template <class Control>
Control& AddBelow(MControl& parent, const char* name) {
    auto& control = *new Control(&parent, name);
    control.layoutRatio.y = 0;
    (new MLayoutTop(parent))->Add(control);
    return control;
}

}  // namespace

/// Runs the worker, and keeps what it raises.
class MProgressWindow::WorkerThread final : public MThread {
public:
    WorkerThread(MProgressWindow& window, Worker& worker) : window(window), worker(worker) {}
    /// Where no window can be shown, nobody would see what it goes on to do.
    ~WorkerThread() override {
        if (GetResult() == NotFinished) window.isCancelled = true;
        RequestStop();
        Wait();
    }

    std::exception_ptr failure;

protected:
    int32_t Execute() override {
        try {
            worker(window);
        } catch (...) {
            failure = std::current_exception();
        }
        return 0;
    }

private:
    MProgressWindow& window;
    Worker& worker;
};

MProgressWindow::MProgressWindow(const MString& caption)
    : MDialogWindow("ProgressWindow", MTranslate(caption)) {
    MControl& gradient = AddBelow<MPanelGradient>(GetContainer(), "gradient");
    MControl& container = AddBelow<MControlContainer>(gradient, "StatisticsContainer");
    auto& row = *new MLayoutHorizontal(container);
    image = new MStatic(&container, "image");
    image->layoutRatio.x = 0;
    statistics = new MStatic(&container, "Statistics");
    customStatistics = new MStatic(&container, "CustomStatistics");
    for (MControl* control : {image, statistics, customStatistics}) row.Add(*control);
    info = &AddBelow<MStatic>(GetContainer(), "info");
    // A long name does not make the window wider.
    info->Set(MControlFlag::IgnoreWidthInLayout);
    bar = &AddBelow<MProgressBar>(GetContainer(), "progress");
    SetImage(MStdBitmap::Notice);
    cancelButton = &AddButton("Cancel", MTranslate("Cancel"), MModalValue::None);
    cancelButton->OnClick(Click::Left).Connect(this, &MProgressWindow::OnCancel);
}

void MProgressWindow::SetImage(MStdBitmap bitmap) {
    image->SetContent(std::make_unique<MContentStdBitmap>(bitmap));
}

MModalValue MProgressWindow::Run(MControl* owner, Worker worker) {
    MWindows* const windows = MWindows::GetInstance();
    isCancelled = false;
    state = {};
    cancelButton->SetEnabled(true);
    WorkerThread thread(*this, worker);
    bool isLost = false;
    if (windows) {
        startTime = windows->GetSystem().GetTime();
        thread.SetTarget(windows);
        thread.OnFinish.Connect(this, &MProgressWindow::OnFinished);
        thread.Start();
        Refresh();
        StartTimer(RefreshTime);
        isLost = RunModal(owner) == MModalValue::None;
        StopTimer();
        // The window may have been closed together with its owner.
        if (thread.GetResult() == MThread::NotFinished) isCancelled = true;
    } else {
        thread.Start();
    }
    thread.Wait();
    if (!thread.failure) return isLost ? MModalValue::None : MModalValue::Ok;
    try {
        std::rethrow_exception(thread.failure);
    } catch (const Cancelled&) {
        return isLost ? MModalValue::None : MModalValue::Cancel;
    }
}

void MProgressWindow::ShowBesideWork(MControl* owner) {
    canBeCancelled = false;
    cancelButton->SetVisible(false);
    startTime = MWindows::GetInstance()->GetSystem().GetTime();
    Refresh();
    CreateWindow(owner);
    ShowModeless(owner);
}

void MProgressWindow::OnFinished(const MOnThreadNotifyParams&) {
    CloseWindow(MModalValue::Ok);
}

void MProgressWindow::CheckCancelled() const {
    if (isCancelled) throw Cancelled();
}

void MProgressWindow::SetProgress(double percent) {
    CheckCancelled();
    const MLockGuard guard(&lock);
    state.percent = percent;
}

void MProgressWindow::SetInfo(const MString& text) {
    CheckCancelled();
    const MLockGuard guard(&lock);
    state.info = text;
}

void MProgressWindow::SetCustomStatistics(const MString& text) {
    CheckCancelled();
    const MLockGuard guard(&lock);
    state.customStatistics = text;
}

void MProgressWindow::Refresh() {
    State now;
    {
        const MLockGuard guard(&lock);
        now = state;
    }
    bar->SetPercent(now.percent);
    const auto show = [](MStatic& control, const MString& text) {
        if (!control.GetCaption().IsExactly(text)) control.SetText(text);
    };
    // Without text there is a blank, so that the line has its room from the beginning.
    show(*info, now.info.IsEmpty() ? MString(" ") : now.info);
    show(*customStatistics, now.customStatistics);
    show(*statistics, GetStatistics(now.percent));
}

MString MProgressWindow::GetStatistics(double percent) const {
    const int64_t elapsed = (MWindows::GetInstance()->GetSystem().GetTime() - startTime) / 1000;
    const bool isKnown = percent > 0;
    constexpr double LongestEstimate = 1e9;
    const double whole = isKnown ? static_cast<double>(elapsed) * 100 / percent : 0;
    const auto estimated = static_cast<int64_t>(std::min(whole, LongestEstimate));
    const auto toText = [isKnown](int64_t seconds) {
        return isKnown ? MDurationText(seconds) : MString("-");
    };
    return MFormat(MTranslate("Elapsed: {0}\nEstimated: {1}\nRemaining: {2}"), MDurationText(elapsed),
                   toText(estimated), toText(std::max<int64_t>(estimated - elapsed, 0)));
}

/// The window closes when the worker has stopped.
bool MProgressWindow::CanClose() {
    if (isCancelled || !canBeCancelled) return false;
    const MControlRef self(this);
    const bool isSure = !asksBeforeCancel || MMessageDialogWindow::MessageBox(
                                                 MTranslate("Are you sure you want to cancel the operation?"),
                                                 MMessageButtons::YesNo, MStdBitmap::Question, this,
                                                 MModalValue::No) == MModalValue::Yes;
    if (!self || !isSure) return false;
    isCancelled = true;
    cancelButton->SetEnabled(false);
    return false;
}

void MProgressWindow::GetMinimalContentSize(int32_t& x, int32_t& y) {
    constexpr int32_t Width = 380;
    MStyle* const style = GetStyle();
    x = style ? style->ScaleX(Width) : Width;
    y = 0;
}
