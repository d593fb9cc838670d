#include "install/run/MInstallRun.h"

#include "foundation/files/MInstallationNames.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/engine/MInstallProcessor.h"
#include "install/registration/MShortcuts.h"
#include "install/registration/MUninstallEntry.h"
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

}  // namespace

MInstallRun::MInstallRun(MSetupSession& session, const MInstallViews& views)
    : session(session), views(views), mainPath(MFile::GetSpecialPath(MSpecialFolderData)) {}

void MInstallRun::Enter() {
    bool isFirst = true;
    for (const MXMLItem& directory : MXMLSubItems(session.GetDefinition(), "directory")) {
        if (directory.GetInt32Attribute("Available", 1) == 0) continue;
        const MString path = directory.GetAttribute("path");
        if (isFirst) mainPath = path;
        isFirst = false;
        session.Macros.AddMacro(directory.GetAttribute("id"), path);
        try {
            MFile::CreatePath(path);
        } catch (const MException& exception) {
            views.dialogs->ShowError(exception.GetMessage());
        }
    }
}

void MInstallRun::Perform() {
    ExpandDestinations();
    MInstallProcessor processor;
    processor.Perform(session.GetDefinition(), session.Library, views, false);
    CopySetup();
    Register();
    views.ShowInfo(MTranslate("Creating shortcuts..."));
    CreateShortcuts();
    SaveState();
    processor.Complete();
}

void MInstallRun::ExpandDestinations() {
    for (MXMLItem& files : MXMLSubItems(session.GetDefinition(), "files")) {
        ExpandDestination(files);
        for (MXMLItem& copy : MXMLSubItems(files, "copy")) ExpandDestination(copy);
    }
}

void MInstallRun::ExpandDestination(MXMLItem& pass) const {
    if (pass.GetInt32Attribute("enabled", 0) == 0) return;
    pass.SetAttribute("currentpath", session.Macros.ExpandMacros(pass.GetAttribute("destination")));
}

void MInstallRun::CopySetup() {
    const MString setupPath = MGetSetupPath(mainPath);
    session.InstalledExecutable = MPlatform::GetPathText(setupPath);
    MSfx program;
    if (HoldsAlready(setupPath, *program.OpenExecutable())) return;
    MFile::CreatePath(mainPath);
    MOutputFile copy(setupPath);
    program.OpenExecutable()->CopyAllToInLargePieces(copy);
    copy.Commit(true);
}

void MInstallRun::Register() const {
    MUninstallEntry entry;
    entry.key = session.GetInstallationName();
    entry.displayName = session.SoftwareName;
    entry.setup = session.InstalledExecutable;
    entry.Write();
}

void MInstallRun::CreateShortcuts() const {
    const MShortcutTargets targets{MGetSetupPath(mainPath),
                                   [this](const MString& text) { return session.Macros.ExpandMacros(text); }};
    const MShortcuts shortcuts(session.AdminRights);
    shortcuts.CreateLinks(shortcuts.GetDirectory(), session.GetDefinition(), targets);
}

void MInstallRun::SaveState() {
    MXMLItem& definition = session.GetDefinition();
    definition.SetAttribute("mainpath", mainPath);
    definition.SetAttribute("adminrights", session.AdminRights ? "1" : "0");
    MOutputFile state(MGetStatePath(mainPath));
    definition.Save(state, false, "utf-8");
    state.Commit(false);
}
