#include "install/run/MSetupLocks.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"

MSetupLocks::MSetupLocks(const MString& mainPath, const MString& productName) {
    const MString userPath = MFile::GetSpecialPath(MSpecialFolderUserData);
    MGuard("MSetupLocks", [&] { MFile::CreatePath(userPath); });
    userData = std::make_unique<MFolderLock>(userPath, productName);
    MGuard("MSetupLocks", [&] { MFile::CreatePath(mainPath); });
    if (!MFile::IsSame(mainPath, userPath)) product = std::make_unique<MFolderLock>(mainPath, productName);
}
