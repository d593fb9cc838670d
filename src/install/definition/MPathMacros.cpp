#include "install/definition/MPathMacros.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"
#include "install/definition/MFolderMacroNames.h"

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
    const MString name = MGetFolderMacroName(folder);
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
