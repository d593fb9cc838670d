#include "builder/MMacroNames.h"

namespace {

/// The last ones have no name: `{}` stands for the pictures folder.
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
    "",
};

}  // namespace

bool MMacroNames::IsFolder(const MString& name) {
    const bool hasSuffix = name.EndsWith("32") || name.EndsWith("64");
    const MString folder = hasSuffix ? name.Substring(0, name.GetLength() - 2) : name;
    for (const char* known : FolderNames)
        if (folder == known) return true;
    return false;
}
