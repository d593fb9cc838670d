#include "builder/checks/MMacroNames.h"

#include "foundation/files/MSpecialFolders.h"
#include "install/definition/MPathMacros.h"

bool MMacroNames::IsFolder(const MString& name) {
    const bool hasSuffix = name.EndsWith("32") || name.EndsWith("64");
    const MString folder = hasSuffix ? name.Substring(0, name.GetLength() - 2) : name;
    for (int32_t i = 0; i < MSpecialFolderCount; ++i)
        if (folder == MPathMacros::GetFolderName(i)) return true;
    return false;
}
