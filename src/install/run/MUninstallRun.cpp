#include "install/run/MUninstallRun.h"

#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/base/MRefusal.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileAccess.h"
#include "foundation/files/MInstallationNames.h"
#include "install/registration/MRegistrationOwner.h"
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
    // Another setup may have been at work here until now.
    if (!MFile::IsInstallation(mainPath))
        MRaise(MExceptionGeneral, "{0} has been removed by another setup meanwhile.", productName);
    MXMLItem current;
    MLoadInstallState(mainPath, current);
    state.CopyFrom(current);
    processor = std::make_unique<MInstallProcessor>();
    views.ShowInfo(MTranslate("Removing files..."));
    MInstallViews bar;
    bar.totalBar = views.totalBar;
    processor->Perform(state, nullptr, bar, MRunKind::Uninstall);
    const MString key = state.GetAttribute("installationname", productName);
    RemoveLinks(key);
    try {
        MUninstallEntry::Delete(key, mainPath, MRegistrationOwner::OfEntry(state));
    } catch (const MException& exception) {
        // The display may have gone meanwhile.
        MGuard("MUninstallRun", [&] { views.dialogs->ShowError(exception.GetMessage()); });
        leftovers.Add(MFormat(MTranslate("the entry \"{0}\" in the list of installed programs"), key));
    }
    const MString path = MGetStatePath(mainPath);
    if (!MGuard("PerformUninstallation", [&] { MFile::Delete(path); })) leftovers.Add(path);
    views.ShowInfo(MTranslate("Done."));
}

void MUninstallRun::RemoveLinks(const MString& key) {
    const MLinkOwner installation{
        mainPath, MUninstallEntry::IsOfAnother(key, mainPath, MRegistrationOwner::OfEntry(state))};
    MShortcuts shortcuts(state.GetInt32Attribute("adminrights", 0) != 0);
    for (const MFolderOwner owner : MRegistrationOwner::OfLinks(state)) {
        const MFolderOwnerScope scope(owner, mainPath);
        try {
            shortcuts.RemoveLinks(shortcuts.GetDirectory(), state, installation);
        } catch (const MException&) {
            try {
                shortcuts.RemoveLinks(shortcuts.GetFormerDirectory(), state, installation);
            } catch (const MException&) {
                ++failureCount;
            }
        }
    }
    for (const MString& link : shortcuts.GetFailures()) leftovers.Add(link);
    keptFolders = shortcuts.GetKeptFolders();
}

MList<MString> MUninstallRun::GetLeftovers() const {
    MList<MString> all = leftovers;
    if (!processor) return all;
    for (const MString& path : processor->GetRemover().GetLeftovers()) all.Add(path);
    return all;
}

MList<MString> MUninstallRun::GetKeptDirectories() const {
    MList<MString> kept;
    const auto add = [&](const MString& path) {
        for (const MString& other : kept)
            if (MFile::IsSame(path, other)) return;
        // What held the last file of another part may have been emptied since.
        bool holdsSomething = false;
        MGuard("MUninstallRun", [&] { holdsSomething = !MFile::GetFileList(path).IsEmpty(); });
        if (holdsSomething) kept.Add(path);
    };
    if (processor)
        for (const MString& path : processor->GetRemover().GetKeptDirectories()) add(path);
    for (const MString& path : keptFolders) add(path);
    return kept;
}
