#include "setup/wizard/MWizardFrontEnd.h"

#include "foundation/base/MRefusal.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "setup/MDesktopNotice.h"
#include "setup/wizard/MDownloadWindow.h"
#include "setup/wizard/MLocalUpdate.h"
#include "setup/wizard/MSetupWindow.h"
#include "setup/wizard/MUninstallWindow.h"
#include "setup/wizard/MUpdateInstallerWindow.h"
#include "ui/control/windows/MWindowsModule.h"
#include "ui/style/MProgramIcons.h"
#include "ui/style/MTexturedStyle.h"
#include "ui/window/MNativeWindowSystem.h"

bool MWizardFrontEnd::OpenWindows() {
    if (MWindows::GetInstance()) return true;
    if (!missing.IsEmpty()) return false;
    try {
        windows = std::make_unique<MWindows>(MCreateNativeWindowSystem());
        MResourceLibrary& resources = MModule::GetInstance()->GetResources();
        MShowProgramIcons(*windows, resources);
        auto style = std::make_unique<MTexturedStyle>(windows.get(), &resources,
                                                      MTexturedStyle::FontSource::TravelingFirst);
        style->LoadStyle();
        windows->SetStyle(std::move(style));
        return true;
    } catch (const MException& exception) {
        windows.reset();
        missing = exception.GetMessage();
        return false;
    }
}

MUserDialogs& MWizardFrontEnd::GetDialogs() {
    if (OpenWindows()) return dialogs;
    return terminal;
}

MExitCode MWizardFrontEnd::RefuseWithoutWindows(const char* advice) {
    const MString text = missing + " " + MTranslate(advice);
    terminal.ShowError(text);
    MNotifyDesktop(MModule::GetInstance()->GetName(), text);
    return MExitFailed;
}

MExitCode MWizardFrontEnd::Install(MLargeResourceLibrary& definition) {
    if (!OpenWindows())
        return RefuseWithoutWindows("To install without windows, add the words: silent accept-licence");
    MString executable;
    try {
        MSetupWindow window(definition, dialogs);
        const MModalValue result = window.RunModal(nullptr);
        const MPageWalk& walk = window.GetWalk();
        const bool hasFailed = walk.GetCurrentPage() == &walk.GetErrorPage();
        // A loop that ends without an answer has lost its display.
        if (result == MModalValue::None && (hasFailed || window.GetInstalledExecutable().IsEmpty())) {
            terminal.ShowError(MTranslate(hasFailed ? "The display was lost, and the installation has failed."
                                                    : "The display was lost, and nothing was installed."));
            return MExitFailed;
        }
        if (window.GetUpdateOffer().IsAccepted()) executable = window.GetInstalledExecutable();
    } catch (const MRefusal& refusal) {
        // A definition that is none is another matter.
        dialogs.ShowError(refusal.GetMessage());
    }
    if (executable.IsEmpty()) return MExitDone;
    const MString directory = MFile::GetDirectory(MFile::Normalize(executable));
    MFile::SetCurrentPath(directory);
    return Update(directory);
}

MExitCode MWizardFrontEnd::InstallUpdate(MLargeResourceLibrary& package) {
    if (!OpenWindows())
        return RefuseWithoutWindows("To install the update without windows, add the word: silent");
    try {
        MRunLocalUpdate(package, dialogs);
    } catch (const MException& exception) {
        dialogs.ShowError(exception.GetMessage());
    }
    return MExitDone;
}

MExitCode MWizardFrontEnd::Update(const MString& directory) {
    if (!OpenWindows())
        return RefuseWithoutWindows("To update without windows, begin with the words: silent update");
    try {
        MUpdateInstallerWindow window(directory, dialogs);
        (void)window.RunModal(nullptr);
    } catch (const MException& exception) {
        dialogs.ShowError(exception.GetMessage());
    }
    return MExitDone;
}

MExitCode MWizardFrontEnd::Remove(const MString& directory) {
    if (!OpenWindows())
        return RefuseWithoutWindows("To remove the software without windows, add the word: silent");
    MUninstallWindow window(directory, dialogs, [&] { (void)Update(directory); });
    (void)window.RunModal(nullptr);
    return MExitDone;
}

MExitCode MWizardFrontEnd::Download(const MDownloadDefinition& definition, const MString& program) {
    if (!OpenWindows()) return RefuseWithoutWindows("To download without windows, add the word: silent");
    try {
        if (MRunDownloadWindow(definition, program, dialogs) != MModalValue::None) return MExitDone;
        terminal.ShowError(
            MTranslate("The display was lost. Start the download again to go on where it has ended."));
        return MExitFailed;
    } catch (const MException& exception) {
        dialogs.ShowError(exception.GetMessage());
        return MExitDone;
    }
}
