#include "install/run/MInstallRun.h"

#include "foundation/files/MInstallationNames.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/engine/MInstallProcessor.h"
#include "install/registration/MRegistrationOwner.h"
#include "install/registration/MShortcuts.h"
#include "install/registration/MUninstallEntry.h"
#include "install/run/MInstallCheck.h"
#include "install/run/MInstalledProgram.h"
#include "streams/basic/MOutputFile.h"

MInstallRun::MInstallRun(MSetupSession& session, const MInstallViews& views)
    : session(session), views(views) {}

void MInstallRun::Check(const MList<MString>& replaced) {
    directories = session.AddDirectoryMacros();
    mainPath = directories.IsEmpty() ? MFile::GetSpecialPath(MSpecialFolderData) : directories[0];
    MCheckDirectories(session, directories);
    session.ExpandDestinations();
    MCheckStatePaths(session, mainPath);
    MCheckMainDirectory(session, mainPath, replaced);
}

void MInstallRun::Enter() {
    Check();
    locks.reset();
    locks = std::make_unique<MSetupLocks>(mainPath, session.SoftwareName);
    // Another setup may have been at work there until now.
    MCheckMainDirectory(session, mainPath, {});
    for (const MString& directory : directories) {
        try {
            MFile::CreatePath(directory);
        } catch (const MException& exception) {
            views.dialogs->ShowError(exception.GetMessage());
        }
    }
}

void MInstallRun::Perform() {
    const std::unique_ptr<MSetupLocks> held = std::move(locks);
    MInstallProcessor processor;
    const auto keepResults = [&] {
        unmerged = processor.GetUnmerged();
        merged = processor.GetMerged();
        installed = processor.GetProgress().installed.GetParts();
    };
    try {
        processor.Perform(session.GetDefinition(), session.Library, views, MRunKind::Install);
    } catch (const MException&) {
        keepResults();
        throw;
    }
    keepResults();

    const MString setupPath = MGetSetupPath(mainPath);
    session.InstalledExecutable = MPlatform::GetPathText(setupPath);
    MLeaveInstalledProgram(setupPath);
    MUninstallEntry{session.GetInstallationName(), session.SoftwareName, setupPath}.Write();

    views.ShowInfo(MTranslate("Creating shortcuts..."));
    const auto expand = [this](const MString& text) { return session.Macros.ExpandPath(text); };
    const MShortcuts shortcuts(session.AdminRights);
    shortcuts.CreateLinks(shortcuts.GetDirectory(), session.GetDefinition(), {setupPath, expand});

    SaveState();
    processor.Complete();
}

void MInstallRun::SaveState() {
    MXMLItem& definition = session.GetDefinition();
    definition.SetAttribute("mainpath", mainPath);
    definition.SetAttribute("adminrights", session.AdminRights ? "1" : "0");
    MRegistrationOwner::Note(definition);
    MOutputFile state(MGetStatePath(mainPath));
    definition.Save(state, false, "utf-8");
    state.Commit();
}
