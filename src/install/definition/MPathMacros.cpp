#include "install/definition/MPathMacros.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/text/MStringFormatter.h"

MString MPathMacros::GetKey(const MString& name) {
    return MFormat("{{{0}}}", name);
}

MString MPathMacros::GetFolderName(int32_t folder) {
    if (folder == MSpecialFolderDownloads) return "temp";
    if (folder == MSpecialFolderMusic) return "logs";
    return folder < MSpecialFolderDownloads ? MString(MSpecialFolderNames[folder]) : MString();
}

void MPathMacros::AddMacro(const MString& name, const MString& value) {
    MacroKeys.Add(GetKey(name));
    MacroValues.Add(value);
}

void MPathMacros::CreatePathMacros(bool useX64) {
    MacroKeys.Clear();
    MacroValues.Clear();
    for (int32_t folder = 0; folder < MSpecialFolderCount; ++folder)
        MGuard("Creating path macros", [&] {
            const MString name = GetFolderName(folder);
            MString path = MFile::GetSpecialPath(folder);
            AddMacro(name + "32", path);
            if (useX64) path.Replace(" (x86)", "");
            AddMacro(name, path);
            if (useX64) AddMacro(name + "64", path);
        });
}

MString MPathMacros::FindKey(const MString& text) const {
    for (const MString& key : MacroKeys)
        if (text.Contains(key)) return key;
    return MString();
}

MString MPathMacros::FindValueWithKey() const {
    for (const MString& value : MacroValues)
        if (!FindKey(value).IsEmpty()) return value;
    return MString();
}

MString MPathMacros::ExpandMacros(const MString& text) const {
    MString expanded = text;
    expanded.Replace(MacroKeys, MacroValues);
    return expanded;
}

MString MPathMacros::ExpandPath(const MString& text) const {
    MString path = text;
    if (!text.Contains("://")) path.ReplaceChar('\\', "/");
    return ExpandMacros(path);
}
