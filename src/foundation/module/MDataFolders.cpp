#include "foundation/module/MDataFolders.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"

namespace {

MString GetDataPath(MSpecialFolder folder, const MString& subdirectory) {
    return MFile::Normalize(MFile::Join(MFile::GetSpecialPath(folder), subdirectory));
}

}  // namespace

MString MDataFolders::GetDataPath_Global(const MString& subdirectory) {
    MString path;
    MGuard("MModule::GetDataPath_Global", [&] {
        path = GetDataPath(MSpecialFolderData, subdirectory);
        MFile::CreatePath(path);
    });
    return path;
}

MString MDataFolders::GetDataPath_User(const MString& subdirectory, bool fallbackToGlobal) {
    MString path;
    MGuard("MModule::GetDataPath_User", [&] {
        path = GetDataPath(MSpecialFolderUserData, subdirectory);
        if (MFile::Exists(path)) return;
        if (fallbackToGlobal)
            path = GetDataPath_Global(subdirectory);
        else
            MFile::CreatePath(path);
    });
    return path;
}
