#include "update/MUpdateRun.h"

#include "foundation/base/MRaise.h"
#include "foundation/base/MRefusal.h"
#include "foundation/files/MFileAccess.h"
#include "foundation/files/MInstallationNames.h"
#include "foundation/files/MSafeName.h"
#include "foundation/xml/MXMLSubItems.h"
#include "install/run/MInstallState.h"
#include "install/run/MSetupLocks.h"
#include "streams/basic/MOutputFile.h"

namespace {

void RemoveLastFile(MXMLItem& pass) {
    if (pass.GetInt32Attribute("enabled", 0) == 0) return;
    const MString path = pass.GetAttribute("currentpath");
    if (MFile::GetFileName(path).Contains(".")) pass.SetAttribute("currentpath", MFile::GetDirectory(path));
}

void RemoveLastFiles(MXMLItem& files) {
    try {
        RemoveLastFile(files);
        for (MXMLItem& copy : MXMLSubItems(files, "copy")) RemoveLastFile(copy);
    } catch (const MException&) {
        MRaise(MExceptionGeneral,
               "Installation log is not complete. Please download and use the newest installer. "
               "There is no need to remove current installation.");
    }
}

/// Puts the children of an update's element in place of those of the installation's. Where the update goes is the
/// user's choice, so its `copy` children mean nothing.
void ReplaceItems(MXMLItem& files, const MXMLItem& update) {
    files.RemoveSubItems("file");
    files.RemoveSubItems("dir");
    for (int32_t i = 0; i < update.GetSubItemCount(); ++i) {
        const MXMLItem& item = *update.GetSubItem(i);
        if (!(item.GetName() == "copy")) files.AddSubItem(item.GetName())->CopyFrom(item);
    }
}

/// Changes a state as an update says, and collects copies of the elements that are to be worked on: the others
/// have their contents in other libraries.
void ReplaceFiles(MXMLItem& state, const MXMLItem& update, MXMLItem& work) {
    const MXMLSubItems installed(state, "files");
    auto files = installed.begin();
    for (const MXMLItem& newFiles : MXMLSubItems(update, "files")) {
        if (!(files != installed.end())) return;
        if (newFiles.GetInt32Attribute("unchanged", 0) == 0) {
            if (newFiles.GetInt32Attribute("removelastfilefrompath", 0) != 0) RemoveLastFiles(*files);
            ReplaceItems(*files, newFiles);
            work.AddSubItem("files")->CopyFrom(*files);
        }
        ++files;
    }
}

/// Changes are changes of something: `basetime` is the level that an update begins at.
void CheckOrigin(const MXMLItem& offer, const MXMLItem& library, const MXMLItem& state) {
    const MXMLItem* const information = library.FindSubItem("updateinformation");
    if (!information) return;
    const MString name = offer.GetAttribute("name");
    if (!(information->GetAttribute("time", "") == offer.GetAttribute("time")))
        MRaise(MExceptionGeneral, "The server has sent another update than {0}. Please try again later.",
               name);
    const MString base = information->GetAttribute("basetime", "");
    if (!MIsPackage(offer) && !base.IsEmpty() &&
        MDateTime::Parse(state.GetAttribute("time")).GetMicroseconds() <
            MDateTime::Parse(base).GetMicroseconds())
        MRaise(
            MExceptionGeneral,
            "{0} changes a newer version than the one that is installed. Please install the updates in between first, "
            "or the newest installer.",
            name);
}

void Attach(MLargeResourceLibrary& library, MStream& content) {
    try {
        content.Rewind();
        library.Attach(&content);
    } catch (const MException&) {
        MRaise(MExceptionGeneral, "The update has not been downloaded correctly. Please try again.");
    }
}

}  // namespace

MUpdateRun::MUpdateRun(const MString& directory) {
    Load(directory);
    (void)MDateTime::Parse(state.GetAttribute("time"));
    const MString path = MGetStatePath(directory);
    if (!MMayDelete(path))
        MRefuse("{0} can only be updated by {1}: nobody else may change \"{2}\". Nothing has been changed.",
                state.GetAttribute("name"), MWhoMayDelete(path), path);
}

void MUpdateRun::Load(const MString& directory) {
    MXMLItem loaded;
    MLoadInstallState(directory, loaded);
    state.CopyFrom(loaded);
}

bool MUpdateRun::IsInstalled(const MXMLItem& offer) const {
    if (MIsPackage(offer)) return false;
    try {
        return MDateTime::Parse(offer.GetAttribute("time")).GetMicroseconds() <=
               MDateTime::Parse(state.GetAttribute("time")).GetMicroseconds();
    } catch (const MException&) {
        return false;
    }
}

void MUpdateRun::Install(const MXMLItem& offer, MStream& content, const MInstallViews& views) {
    MLargeResourceLibrary library;
    Attach(library, content);
    views.ShowFile(MFormat(MTranslate("Installing {0}..."), offer.GetAttribute("name")));
    const MString mainPath = GetMainPath();
    const MSetupLocks locks(mainPath, state.GetAttribute("name"));
    // Another setup may have been at work here until now.
    Load(mainPath);
    CheckOrigin(offer, library, state);
    MXMLItem work;
    ReplaceFiles(state, library, work);
    processor.Perform(work, &library, views, MRunKind::Install);

    views.ShowFile(MTranslate("Updating installation state..."));
    if (MIsPackage(offer)) {
        MXMLItem& package = *state.AddSubItem("package");
        package.CopyFrom(offer);
        package.SetName("package");
    } else {
        state.SetAttribute("time", offer.GetAttribute("time"));
    }
    SaveState();
    processor.Complete();
}

void MUpdateRun::SaveState() const {
    MOutputFile file(MGetStatePath(GetMainPath()));
    state.Save(file, false, "utf-8");
    file.Commit();
}

void MUpdateRun::Execute(const MXMLItem& offer) const {
    const MString name = offer.GetAttribute("execute", "");
    if (name.IsEmpty()) return;
    if (!MIsSafeName(name))
        MRaise(MExceptionGeneral,
               "The program \"{0}\" of the update leads out of the folder of the software.", name);
    const MString directory = GetMainPath();
    (void)MFile::Execute(MFile::Join(directory, name), {}, directory, !MNeedsRestart(offer));
}
