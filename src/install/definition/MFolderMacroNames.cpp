#include "install/definition/MFolderMacroNames.h"

#include <iterator>

namespace {

const char* const Names[] = {
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

}  // namespace

MString MGetFolderMacroName(int32_t folder) {
    return folder < static_cast<int32_t>(std::size(Names)) ? MString(Names[folder]) : MString();
}
