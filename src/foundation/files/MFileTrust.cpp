#include "foundation/files/MFileTrust.h"

#include "foundation/base/MList.h"
#include "foundation/base/MRaise.h"

namespace {

const char* DescribeTrust(MFolderTrust trust) {
    switch (trust) {
    case MFolderTrust::Own: break;
    case MFolderTrust::NoFolder: return "The folder \"{0}\" is not used: it is a link or no folder.";
    case MFolderTrust::Foreign: return "The folder \"{0}\" is not used: it belongs to another user.";
    case MFolderTrust::Shared: return "The folder \"{0}\" is not used: other users may write into it.";
    }
    return nullptr;
}

}  // namespace

void MRequireOwnFolder(const MString& path) {
    if (const char* reason = DescribeTrust(MGetFolderTrust(path))) MRaise(MExceptionGeneral, reason, path);
}

void MCreateOwnPath(const MString& base, const MString& name) {
    MRequireOwnFolder(base);
    MString path = base;
    MString slashed = name;
    slashed.ReplaceChar('\\', "/");
    for (const MString& component : slashed.Split('/')) {
        if (component.IsExactly(".")) continue;
        path += "/" + component;
        MCreateOwnFolder(path);
        MRequireOwnFolder(path);
    }
}
