#include "foundation/files/MSpecialFolders.h"

#include "foundation/MProductConstants.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/files/posix/MUserFolders.h"

#include <cstdlib>

namespace {

/// Whether this process could create a directory, judged by the nearest ancestor that stands.
bool CanCreate(MString path) {
    while (!MFile::Exists(path)) path = MFile::GetDirectory(path);
    return MFile::IsWritable(path);
}

MString ChooseShared(const MString& shared, const MString& ofUser) {
    return CanCreate(shared) ? shared : ofUser;
}

MString GetTemporary() {
    const char* variable = std::getenv("TMPDIR");
    const MString path = MFile::Normalize(MPathFromNative(variable ? variable : ""));
    return !path.IsEmpty() && MFile::IsDirectory(path) ? path : MString("/tmp");
}

class PlatformFolders final : public MSpecialFolders {
public:
    MString GetPath(int32_t index) override {
        const MUserFolders user;
        const MString data = user.GetData();
        const MString local = MFile::Join(user.GetHome(), ".local");
        switch (index) {
        case MSpecialFolderData:
            return ChooseShared(MFile::Join("/var/lib", MProductMaker), MFile::Join(data, MProductMaker));
        case MSpecialFolderUserData: return MFile::Join(data, MProductMaker);
        case MSpecialFolderUser: return user.GetHome();
        case MSpecialFolderDocuments:
            return ChooseShared("/usr/local/share/documents", GetPath(MSpecialFolderUserDocuments));
        case MSpecialFolderUserDocuments: return user.GetNamed("DOCUMENTS", "Documents");
        case MSpecialFolderProgramFiles: return ChooseShared("/opt", MFile::Join(local, "opt"));
        case MSpecialFolderComponents: return ChooseShared("/usr/local/lib", MFile::Join(local, "lib"));
        case MSpecialFolderStartMenu:
        case MSpecialFolderStartMenuPrograms:
            return ChooseShared("/usr/local/share/applications", MFile::Join(data, "applications"));
        case MSpecialFolderUserStartMenu:
        case MSpecialFolderUserStartMenuPrograms: return MFile::Join(data, "applications");
        case MSpecialFolderDesktop:
        case MSpecialFolderUserDesktop: return user.GetNamed("DESKTOP", "Desktop");
        case MSpecialFolderSystem: return ChooseShared("/usr/local", local);
        case MSpecialFolderFonts: return ChooseShared("/usr/local/share/fonts", MFile::Join(data, "fonts"));
        case MSpecialFolderDownloads: return user.GetNamed("DOWNLOAD", "Downloads");
        case MSpecialFolderMusic: return user.GetNamed("MUSIC", "Music");
        case MSpecialFolderPictures: return user.GetNamed("PICTURES", "Pictures");
        case MSpecialFolderVideo: return user.GetNamed("VIDEOS", "Videos");
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
