#include "update/MUpdateRun.h"

#include "foundation/base/MGuard.h"
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
void ReplaceItems(MXMLItem& files, MXMLItem& update) {
    files.RemoveSubItems("file");
    files.RemoveSubItems("dir");
    update.RemoveSubItems("copy");
    files.TakeSubItems(update);
}

using Elements = MList<MXMLItem, MListPointers>;

/// Changes a state as an update says. The elements that are to be worked on are lent to `work`, since the others have
/// their contents in other libraries; gives their places.
Elements ReplaceFiles(MXMLItem& state, const MXMLItem& update, MXMLItem& work) {
    Elements places;
    const MXMLSubItems installed(state, "files");
    auto files = installed.begin();
    for (MXMLItem& newFiles : MXMLSubItems(update, "files")) {
        if (!(files != installed.end())) break;
        if (newFiles.GetInt32Attribute("unchanged", 0) == 0) {
            if (newFiles.GetInt32Attribute("removelastfilefrompath", 0) != 0) RemoveLastFiles(*files);
            ReplaceItems(*files, newFiles);
            work.AddSubItem("files")->MoveFrom(*files);
            places.Add(&*files);
        }
        ++files;
    }
    return places;
}

void ReturnFiles(MXMLItem& work, const Elements& places) {
    for (int32_t i = 0; i < places.GetCount(); ++i) places[i]->MoveFrom(*work.GetSubItem(i));
}

/// Changes are changes of something: `basetime` is the level that an update begins at.
void CheckOrigin(const MXMLItem& offer, const MXMLItem& library, const MXMLItem& state) {
    const MXMLItem* const information = library.FindSubItem("updateinformation");
    // A maker signs installers, too, and the updates of all products by one key.
    if (!information && state.GetAttribute("updatekey", "").IsEmpty()) return;
    const MString name = offer.GetAttribute("name");
    if (!information || !(information->GetAttribute("time", "") == offer.GetAttribute("time")))
        MRaise(MExceptionGeneral, "The server has sent another update than {0}. Please try again later.",
               name);
    const MString installed = state.GetAttribute("installationname", state.GetAttribute("name", ""));
    const MString product = information->GetAttribute("installationname", installed);
    if (!(product == installed))
        MRaise(MExceptionGeneral,
               "{0} is for {1}, and {2} is installed here. Nothing of it has been installed.", name, product,
               installed);
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

/// Empty for a file that cannot be read.
std::string ReadText(const MString& path) {
    std::string text;
    MGuard("MUpdateRun", [&] {
        MStdFileStream file;
        file.Open(path, MOpenRead);
        text.resize(static_cast<size_t>(file.GetSize()));
        file.ReadRequired(text.data(), static_cast<int32_t>(text.size()));
    });
    return text;
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
    const std::string text = ReadText(MGetStatePath(directory));
    if (!text.empty() && text == stateText) return;
    MXMLItem loaded;
    MLoadInstallState(directory, loaded);
    state.MoveFrom(loaded);
    // If somebody has written in between, the next text is another one.
    stateText = text;
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

bool MUpdateRun::Finds(const MXMLItem& offer) {
    Load(GetMainPath());
    return MIsPackage(offer) ? state.FindSubItem("package", "time", offer.GetAttribute("time")) != nullptr
                             : IsInstalled(offer);
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
    stateText.clear();
    MXMLItem work;
    const Elements places = ReplaceFiles(state, library, work);
    processor.Perform(work, &library, views, MRunKind::Install);
    ReturnFiles(work, places);

    views.ShowFile(MTranslate("Updating installation state..."));
    if (MIsPackage(offer)) {
        MXMLItem& package = *state.AddSubItem("package");
        package.CopyFrom(offer);
        package.SetName("package");
    } else {
        state.SetAttribute("time", offer.GetAttribute("time"));
    }
    SaveState();
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
