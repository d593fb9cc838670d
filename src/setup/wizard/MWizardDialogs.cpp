#include "setup/wizard/MWizardDialogs.h"

#include "foundation/text/MStringFormatter.h"
#include "foundation/xml/MEntities.h"
#include "ui/dialogs/MEditTextDialog.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/dialogs/MProgressWindow.h"
#include "ui/widgets/files/MBackgroundTask.h"

#include <exception>

namespace {

/// A window with a bar beside work in the thread of the windows.
class ProgressBeside final : public MProgressView {
public:
    ProgressBeside(const MString& title, MControl* owner, MWindowPulse& pulse) : window(title), pulse(pulse) {
        window.ShowBesideWork(owner);
        pulse.Beat();
    }
    void SetProgress(double maximum, double value) override {
        window.SetProgress(maximum > 0 ? value / maximum * 100 : 0);
        window.Refresh();
        pulse.Beat();
    }

private:
    MProgressWindow window;
    MWindowPulse& pulse;
};

}  // namespace

MControl* MWizardDialogs::GetOwner() const {
    return owner && owner->Is(MControlFlag::HasWindow) ? owner.Get() : nullptr;
}

MString MWizardDialogs::ToMarkup(const MString& text) {
    MString markup = MEntities::Escape(text);
    // The end of a line is one in mark-up too, and an empty line an empty one.
    markup.Replace("&#10;", "\n");
    return markup;
}

bool MWizardDialogs::AskYesNo(const MString& question) {
    return MMessageDialogWindow::MessageBox(ToMarkup(question), MMessageButtons::YesNo, MStdBitmap::Question,
                                            GetOwner(), MModalValue::No) == MModalValue::Yes;
}

MRetryAnswer MWizardDialogs::AskRetry(const MString& question) {
    switch (MMessageDialogWindow::MessageBox(ToMarkup(question), MMessageButtons::YesNoIgnore,
                                             MStdBitmap::Question, GetOwner())) {
    case MModalValue::Yes: return MRetryAnswer::Retry;
    case MModalValue::Ok: return MRetryAnswer::Ignore;
    default: return MRetryAnswer::Refuse;
    }
}

void MWizardDialogs::ShowError(const MString& text) {
    (void)MMessageDialogWindow::MessageBox(ToMarkup(text), MMessageButtons::Close, MStdBitmap::Exclamation,
                                           GetOwner());
}

void MWizardDialogs::ShowInformation(const MString& markup) {
    (void)MMessageDialogWindow::MessageBox(markup, MMessageButtons::Close, MStdBitmap::Notice, GetOwner());
}

void MWizardDialogs::ShowText(const MString& prompt, const MString& text) {
    (void)MEditTextDialog::EditText(prompt, text, MEditTextDialog::Lines::One, GetOwner());
}

std::unique_ptr<MProgressView> MWizardDialogs::OpenProgress(const MString& title) {
    return std::make_unique<ProgressBeside>(title, GetOwner(), pulse);
}

void MWizardDialogs::Await(const std::function<void()>& work) {
    constexpr int32_t Patience = 20;
    std::exception_ptr failure;
    {
        const MBackgroundTask task([&] {
            try {
                work();
            } catch (...) {
                failure = std::current_exception();
            }
        });
        while (!task.WaitFor(Patience)) pulse.Beat();
    }
    if (failure) std::rethrow_exception(failure);
}
