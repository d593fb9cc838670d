#include "setup/wizard/MLocalUpdate.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MInstallationNames.h"
#include "install/run/MInstalledProgram.h"
#include "payload/MLargeResourceLibrary.h"
#include "setup/wizard/MUpdateInstallerWindow.h"
#include "ui/dialogs/MDirectoryDialog.h"

namespace {

MString AskForInstallation(MWizardDialogs& dialogs) {
    MDirectoryDialog dialog("SelectInstallation", MTranslate("Select installation path"));
    // Begins where most are; on Linux that may be below a hidden folder.
    dialog.GetTree().SetHiddenShown(true);
    dialog.SetPath(MFile::GetSpecialPath(MSpecialFolderProgramFiles));
    while (dialog.RunModal(nullptr) == MModalValue::Ok) {
        if (MFile::IsInstallation(dialog.GetPath())) return dialog.GetPath();
        dialogs.ShowError(MTranslate("Sorry, there is no installation present in specified directory."));
    }
    MRaise(MExceptionGeneral, "Update installation has been cancelled.");
}

/// Empty if the user does not want to look for it.
MString FindInstallation(const MString& name, MWizardDialogs& dialogs) {
    try {
        return MFile::GetSoftwareInstallationPath(name);
    } catch (const MException&) {
        const bool isWanted = dialogs.AskYesNo(
            MTranslate("No installation has been found on this computer. Would you like to select the "
                       "installation directory manually?"));
        return isWanted ? AskForInstallation(dialogs) : MString();
    }
}

}  // namespace

void MRunLocalUpdate(MLargeResourceLibrary& package, MWizardDialogs& dialogs) {
    const MXMLItem& offer = *package.GetSubItem("updateinformation");
    const MString directory =
        FindInstallation(offer.GetAttribute("installationname", offer.GetAttribute("name")), dialogs);
    if (directory.IsEmpty()) return;
    MFile::SetCurrentPath(directory);
    MUpdateInstallerWindow window(directory, dialogs, offer, package.GetStream());
    if (!window.IsUsable()) return;
    (void)window.RunModal(nullptr);
    MLeaveInstalledProgram(MGetSetupPath(directory));
}
