#include "foundation/files/MSpecialFolders.h"

#include "foundation/MProductConstants.h"
#include "foundation/files/MFile.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"

#include <shlobj.h>

namespace {

/// Empty if the shell does not give the folder.
MString GetShellFolder(int folder) {
    wchar_t path[MAX_PATH];
    if (FAILED(SHGetFolderPathW(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, path))) return {};
    return MFile::Normalize(MFromWide(path));
}

/// There is no folder below one that there is not.
MString GetBelow(const MString& folder, const char* name) {
    return folder.IsEmpty() ? folder : MFile::Join(folder, name);
}

MString GetProfile() {
    return MFile::GetDirectory(GetShellFolder(CSIDL_PERSONAL));
}

MString GetTemporary() {
    wchar_t path[260];
    const DWORD length = GetTempPathW(260, path);
    return length > 0 && length < 260 ? MFile::Normalize(MFromWide(path))
                                      : GetBelow(GetShellFolder(CSIDL_WINDOWS), "temp");
}

class PlatformFolders final : public MSpecialFolders {
public:
    MString GetPath(int32_t index) override {
        switch (index) {
        case MSpecialFolderData: return GetBelow(GetShellFolder(CSIDL_COMMON_APPDATA), MProductMaker);
        case MSpecialFolderUserData: return GetBelow(GetShellFolder(CSIDL_APPDATA), MProductMaker);
        case MSpecialFolderUser: return GetProfile();
        case MSpecialFolderDocuments: {
            const MString shared = GetShellFolder(CSIDL_COMMON_DOCUMENTS);
            return shared.IsEmpty() ? GetShellFolder(CSIDL_PERSONAL) : shared;
        }
        case MSpecialFolderUserDocuments: return GetShellFolder(CSIDL_PERSONAL);
        case MSpecialFolderProgramFiles: return GetShellFolder(CSIDL_PROGRAM_FILES);
        case MSpecialFolderComponents: return GetShellFolder(CSIDL_PROGRAM_FILES_COMMON);
        case MSpecialFolderStartMenu: return GetShellFolder(CSIDL_COMMON_STARTMENU);
        case MSpecialFolderUserStartMenu: return GetShellFolder(CSIDL_STARTMENU);
        case MSpecialFolderStartMenuPrograms: return GetShellFolder(CSIDL_COMMON_PROGRAMS);
        case MSpecialFolderUserStartMenuPrograms: return GetShellFolder(CSIDL_PROGRAMS);
        case MSpecialFolderDesktop: return GetShellFolder(CSIDL_COMMON_DESKTOPDIRECTORY);
        case MSpecialFolderUserDesktop: return GetShellFolder(CSIDL_DESKTOPDIRECTORY);
        case MSpecialFolderSystem: return GetShellFolder(CSIDL_WINDOWS);
        case MSpecialFolderFonts: return GetShellFolder(CSIDL_FONTS);
        case MSpecialFolderDownloads: return GetBelow(GetProfile(), "Downloads");
        case MSpecialFolderMusic: return GetShellFolder(CSIDL_MYMUSIC);
        case MSpecialFolderPictures: return GetShellFolder(CSIDL_MYPICTURES);
        case MSpecialFolderVideo: return GetShellFolder(CSIDL_MYVIDEO);
        case MSpecialFolderTemporary: return GetTemporary();
        default: return {};
        }
    }
};

}  // namespace

MSpecialFolders& MGetPlatformFolders() {
    static PlatformFolders folders;
    return folders;
}
