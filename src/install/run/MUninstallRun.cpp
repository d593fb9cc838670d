#include "install/run/MUninstallRun.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRefusal.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileAccess.h"
#include "foundation/files/MInstallationNames.h"
#include "install/registration/MShortcuts.h"
#include "install/registration/MUninstallEntry.h"
#include "install/run/MInstallState.h"
#include "install/run/MSetupLocks.h"

MUninstallRun::MUninstallRun(const MString& directory, const MInstallViews& views) : views(views) {
    MLoadInstallState(directory, state);
    productName = state.GetAttribute("name");
    mainPath = state.GetAttribute("mainpath");
    const MString path = MGetStatePath(directory);
    if (!MMayDelete(path))
        MRefuse("{0} can only be removed by {1}: nobody else may delete \"{2}\". Nothing has been removed.",
                productName, MWhoMayDelete(path), path);
}

void MUninstallRun::PerformUninstallation() {
    const MSetupLocks locks(mainPath, productName);
    processor = std::make_unique<MInstallProcessor>();
    MShortcuts shortcuts(state.GetInt32Attribute("adminrights", 0) != 0);
    views.ShowInfo(MTranslate("Removing files..."));
    MInstallViews bar;
    bar.totalBar = views.totalBar;
    processor->Perform(state, nullptr, bar, MRunKind::Uninstall);
    RemoveLinks(shortcuts);

    const MString key = state.GetAttribute("installationname", productName);
    try {
        MUninstallEntry::Delete(key);
    } catch (const MException& exception) {
        views.dialogs->ShowError(exception.GetMessage());
        leftovers.Add(MFormat(MTranslate("the entry \"{0}\" in the list of installed programs"), key));
    }
    const MString path = MGetStatePath(mainPath);
    if (!MGuard("PerformUninstallation", [&] { MFile::Delete(path); })) leftovers.Add(path);
    views.ShowInfo(MTranslate("Done."));
}

void MUninstallRun::RemoveLinks(MShortcuts& shortcuts) {
    try {
        shortcuts.RemoveLinks(shortcuts.GetDirectory(), state);
    } catch (const MException&) {
        try {
            shortcuts.RemoveLinks(shortcuts.GetFormerDirectory(), state);
        } catch (const MException&) {
            ++failureCount;
        }
    }
    for (const MString& link : shortcuts.GetFailures()) leftovers.Add(link);
}

MList<MString> MUninstallRun::GetLeftovers() const {
    MList<MString> all = leftovers;
    for (const MString& path : processor->GetRemover().GetLeftovers()) all.Add(path);
    return all;
}
