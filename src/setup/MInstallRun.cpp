#include "setup/MInstallRun.h"

#include "foundation/MFile.h"
#include "foundation/MXMLSubItems.h"
#include "install/MInstallProcessor.h"
#include "streams/MOutputFile.h"

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
    SaveState();
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

void MInstallRun::SaveState() {
    MXMLItem& definition = session.GetDefinition();
    definition.SetAttribute("mainpath", mainPath);
    definition.SetAttribute("adminrights", session.AdminRights ? "1" : "0");
    MFile::CreatePath(mainPath);
    MOutputFile state(MFile::Join(mainPath, "setup.state"));
    definition.Save(state, false, "utf-8");
    state.Commit(false);
}
