#include "install/presets/MUserDataMigration.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"

namespace {

bool IsOldPresetFile(const MString& name) {
    return name.StartsWith("m") && (name.Contains("presets.xml") || name.Contains("presets.active"));
}

MString GetNewName(const MString& name) {
    if (IsOldPresetFile(name)) return name;
    return name == "StepSequencepresets.xml" ? MString("MStepSequencepresets.xml") : MString();
}

void MigratePresetFiles(const MString& parent, const MString& destination) {
    MList<MString> names;
    for (const MFileListEntry& entry : MFile::GetFileList(parent))
        if (!entry.isDirectory && !GetNewName(entry.name).IsEmpty()) names.Add(entry.name);
    names.Sort([](const MString& a, const MString& b) { return a.Compare(b) < 0; });
    for (const MString& name : names)
        MGuard("Move preset files",
               [&] { MFile::Rename(MFile::Join(parent, name), MFile::Join(destination, GetNewName(name))); });
}

void MigrateFolder(const MString& from, const MString& to) {
    if (!MFile::Exists(from)) return;
    if (!MFile::IsLink(from)) return MFile::Move(from, to);
    // A link may lead somewhere else from its new place.
    if (MFile::Exists(to)) return;
    MFile::Copy(from, to);
    MFile::Delete(from);
}

}  // namespace

void MigrateUserData(const MString& destination) {
    const MString parent = MFile::GetDirectory(destination);
    MGuard("Move preset files", [&] { MigratePresetFiles(parent, destination); });
    for (const char* folder : {"Kestrum", "MTexturedStyles", "Corvanth IR"})
        MGuard("Move standard folder",
               [&] { MigrateFolder(MFile::Join(parent, folder), MFile::Join(destination, folder)); });
}
