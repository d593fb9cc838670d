#include "setup/wizard/MDownloadWindow.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "setup/wizard/MWizardDialogs.h"
#include "ui/dialogs/MMessageDialogWindow.h"
#include "ui/dialogs/MProgressWindow.h"
#include "update/MDownloader.h"

namespace {

/// Shows a download, which runs on the window's worker. Once it is cancelled the window takes nothing more, but the
/// download has still to write down how far it is.
class WindowView final : public MDownloadView {
public:
    explicit WindowView(MProgressWindow& window) : window(window) {}

    void SetText(const MString& text) override {
        MGuard("MDownloadWindow", [&] { window.SetInfo(text); });
    }
    void SetStatistics(const MString& text) override {
        MGuard("MDownloadWindow", [&] { window.SetCustomStatistics(text); });
    }
    void SetProgress(double maximum, double value) override {
        MGuard("MDownloadWindow", [&] { window.SetProgress(maximum > 0 ? value / maximum * 100 : 0); });
    }
    bool IsCancelled() override { return window.IsCancelled(); }

private:
    MProgressWindow& window;
};

}  // namespace

MModalValue MRunDownloadWindow(const MDownloadDefinition& definition, const MString& program,
                               MWizardDialogs& dialogs) {
    const MString target = MGetDownloadTarget(program);
    bool isComplete = false;
    {
        MProgressWindow window(definition.GetID() + MTranslate(" downloader"));
        window.asksBeforeCancel = true;
        const MModalValue result = window.Run(nullptr, [&](MProgressWindow& progress) {
            WindowView view(progress);
            isComplete = MDownloader(definition, target, view).Run();
        });
        if (result == MModalValue::None) return result;
    }
    if (!isComplete) return MModalValue::Cancel;
    const MString setup = MFindDownloadedSetup(target);
    if (setup.IsEmpty()) {
        dialogs.ShowInformation(MTranslate("The software has successfully been downloaded."));
        return MModalValue::Ok;
    }
    const MString question =
        MTranslate("The software has successfully been downloaded. Do you want to run the installer now?");
    if (MMessageDialogWindow::MessageBox(question, MMessageButtons::YesNo, MStdBitmap::Question, nullptr) ==
        MModalValue::Yes)
        (void)MFile::Execute(setup, {}, target, false);
    return MModalValue::Ok;
}
