#include "setup/MPathMacros.h"

#include "foundation/MFile.h"
#include "foundation/MGuard.h"
#include "foundation/MStringFormatter.h"

#include <iterator>

namespace {

/// One name for each of the first special folders. The names of `temp` and `logs` and the folders at
/// their places disagree, and the last folders have no name: definitions rely on what results.
const char* const FolderNames[] = {
    "data",
    "userdata",
    "user",
    "documents",
    "userdocuments",
    "programfiles",
    "components",
    "startmenu",
    "userstartmenu",
    "startmenuprograms",
    "userstartmenuprograms",
    "desktop",
    "userdesktop",
    "system",
    "fonts",
    "temp",
    "logs",
};

MString GetFolderName(int32_t folder) {
    return folder < static_cast<int32_t>(std::size(FolderNames)) ? MString(FolderNames[folder]) : MString();
}

}  // namespace

MString MPathMacros::GetKey(const MString& name) {
    return MFormat("{{{0}}}", name);
}

void MPathMacros::AddMacro(const MString& name, const MString& value) {
    MacroKeys.Add(GetKey(name));
    MacroValues.Add(value);
}

void MPathMacros::CreatePathMacros(bool useX64) {
    MacroKeys.Clear();
    MacroValues.Clear();
    for (int32_t folder = 0; folder < MSpecialFolderCount; ++folder)
        MGuard("Creating path macros", [&] { AddFolder(folder, useX64); });
}

void MPathMacros::AddFolder(int32_t folder, bool useX64) {
    const MString name = GetFolderName(folder);
    MString path = MFile::GetSpecialPath(folder);
    AddMacro(name + "32", path);
    if (useX64) path.Replace(" (x86)", "");
    AddMacro(name, path);
    if (useX64) AddMacro(name + "64", path);
}

MString MPathMacros::ExpandMacros(const MString& text) const {
    MString expanded = text;
    expanded.Replace(MacroKeys, MacroValues);
    return expanded;
}
