#include "setup/wizard/MWorkerViews.h"

#include "foundation/base/MGuard.h"
#include "foundation/events/MLockGuard.h"

#include <optional>
#include <utility>

/// A line as the worker has last set it, until it is shown.
class MWorkerViews::Text final : public MTextView {
public:
    Text(MLock& lock, MTextView* target) : lock(lock), target(target) {}

    void SetText(const MString& newText) override {
        const MLockGuard guard(&lock);
        text = newText;
    }
    void Show() {
        std::optional<MString> current;
        {
            const MLockGuard guard(&lock);
            current.swap(text);
        }
        if (current && target) target->SetText(*current);
    }

private:
    MLock& lock;
    MTextView* const target;
    std::optional<MString> text;
};

/// A bar likewise.
class MWorkerViews::Bar final : public MProgressView {
public:
    Bar(MLock& lock, MProgressView* target) : lock(lock), target(target) {}

    void SetProgress(double maximum, double value) override {
        const MLockGuard guard(&lock);
        progress = {maximum, value};
    }
    void Show() {
        std::optional<std::pair<double, double>> current;
        {
            const MLockGuard guard(&lock);
            current.swap(progress);
        }
        if (current && target) target->SetProgress(current->first, current->second);
    }

private:
    MLock& lock;
    MProgressView* const target;
    std::optional<std::pair<double, double>> progress;
};

class MWorkerViews::Dialogs final : public MUserDialogs {
public:
    explicit Dialogs(MWorkerViews& views) : views(views) {}

    bool AskYesNo(const MString& text) override {
        bool answer = false;
        Ask([&](MUserDialogs& user) { answer = user.AskYesNo(text); });
        return answer;
    }
    MRetryAnswer AskRetry(const MString& text) override {
        MRetryAnswer answer = MRetryAnswer::Refuse;
        Ask([&](MUserDialogs& user) { answer = user.AskRetry(text); });
        return answer;
    }
    void ShowError(const MString& text) override {
        Ask([&](MUserDialogs& user) { user.ShowError(text); });
    }
    void ShowInformation(const MString& markup) override {
        Ask([&](MUserDialogs& user) { user.ShowInformation(markup); });
    }
    void ShowText(const MString& prompt, const MString& text) override {
        Ask([&](MUserDialogs& user) { user.ShowText(prompt, text); });
    }
    /// There is one already.
    std::unique_ptr<MProgressView> OpenProgress(const MString&) override { return nullptr; }

private:
    void Ask(const Question& asked) {
        {
            const MLockGuard guard(&views.lock);
            if (views.isOver) return;
            views.question = &asked;
        }
        (void)views.answered.Lock(MSynchronizer::Forever);
    }

    MWorkerViews& views;
};

MWorkerViews::MWorkerViews(const MInstallViews& shown)
    : shown(shown),
      infoText(std::make_unique<Text>(lock, shown.infoText)),
      fileText(std::make_unique<Text>(lock, shown.fileText)),
      fileBar(std::make_unique<Bar>(lock, shown.fileBar)),
      totalBar(std::make_unique<Bar>(lock, shown.totalBar)),
      dialogs(std::make_unique<Dialogs>(*this)) {}

MWorkerViews::~MWorkerViews() noexcept(false) = default;

MInstallViews MWorkerViews::GetViews() {
    MInstallViews views;
    views.infoText = infoText.get();
    views.fileText = fileText.get();
    views.fileBar = fileBar.get();
    views.totalBar = totalBar.get();
    if (shown.dialogs) views.dialogs = dialogs.get();
    return views;
}

void MWorkerViews::End() {
    StopTimer();
    Show();
    const MLockGuard guard(&lock);
    isOver = true;
    if (std::exchange(question, nullptr)) answered.Unlock();
}

void MWorkerViews::OnTimer() {
    Show();
    Answer();
}

void MWorkerViews::Show() {
    infoText->Show();
    fileText->Show();
    fileBar->Show();
    totalBar->Show();
}

/// The timer goes on while a dialog is open, but then there is no other question.
void MWorkerViews::Answer() {
    const Question* asked;
    {
        const MLockGuard guard(&lock);
        asked = std::exchange(question, nullptr);
    }
    if (!asked) return;
    MGuard("MWorkerViews", [&] { (*asked)(*shown.dialogs); });
    answered.Unlock();
}
