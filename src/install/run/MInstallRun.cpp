#include "install/run/MInstallRun.h"

#include "foundation/files/MInstallationNames.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/engine/MInstallProcessor.h"
#include "install/registration/MRegistrationOwner.h"
#include "install/registration/MShortcuts.h"
#include "install/registration/MUninstallEntry.h"
#include "install/run/MInstallCheck.h"
#include "payload/MSfx.h"
#include "streams/basic/MOutputFile.h"

#include <cstring>

namespace {

/// Whether a file is just what the stream gives. A program that runs cannot be replaced on Windows, and where
/// the installer itself stands in the main path, or nothing changed, it need not be.
bool HoldsAlready(const MString& path, MStream& content) {
    if (!MFile::IsFile(path) || MFile::GetFileSize(path) != content.GetSize()) return false;
    MStdFileStream file;
    file.Open(path, MOpenRead);
    char expected[4096];
    char found[sizeof expected];
    int32_t count;
    while ((count = content.Read(expected, sizeof expected)) > 0)
        if (file.Read(found, count) != count || std::memcmp(expected, found, static_cast<size_t>(count)) != 0)
            return false;
    return true;
}

/// Leaves a copy of this program without its payload.
void CopySetup(const MString& setupPath) {
    MSfx program;
    if (HoldsAlready(setupPath, *program.OpenExecutable())) return;
    MFile::CreatePath(MFile::GetDirectory(setupPath));
    MOutputFile copy(setupPath);
    program.OpenExecutable()->CopyAllToInLargePieces(copy);
    copy.CommitProgram();
}

}  // namespace

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
    CopySetup(setupPath);
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
