#include "foundation/files/MSpecialFolders.h"

#include "foundation/MProductConstants.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/files/posix/MUserFolders.h"

#include <cstdlib>
#include <optional>

namespace {

/// Whether this process could create a directory, judged by the nearest ancestor that stands.
bool CanCreate(MString path) {
    while (!MFile::Exists(path)) path = MFile::GetDirectory(path);
    return MFile::IsWritable(path);
}

MString GetTemporary() {
    const char* variable = std::getenv("TMPDIR");
    const MString path = MFile::Normalize(MPathFromNative(variable ? variable : ""));
    return !path.IsEmpty() && MFile::IsDirectory(path) ? path : MString("/tmp");
}

/// Chooses between the two folders of a shared row.
class SharedChoice {
public:
    SharedChoice() = default;
    explicit SharedChoice(MFolderOwner owner) : owner(owner) {}

    [[nodiscard]] const MString& operator()(const MString& shared, const MString& ofUser) const {
        const bool isShared = owner ? *owner == MFolderOwner::Everybody : CanCreate(shared);
        return isShared ? shared : ofUser;
    }

private:
    std::optional<MFolderOwner> owner;
};

MString FindPath(const MUserFolders& user, const SharedChoice& choose, int32_t index) {
    const MString data = user.GetData();
    const MString local = MFile::Join(user.GetHome(), ".local");
    switch (index) {
    case MSpecialFolderData:
        return choose(MFile::Join("/var/lib", MProductMaker), MFile::Join(data, MProductMaker));
    case MSpecialFolderUserData: return MFile::Join(data, MProductMaker);
    case MSpecialFolderUser: return user.GetHome();
    case MSpecialFolderDocuments:
        return choose("/usr/local/share/documents", user.GetNamed("DOCUMENTS", "Documents"));
    case MSpecialFolderUserDocuments: return user.GetNamed("DOCUMENTS", "Documents");
    case MSpecialFolderProgramFiles: return choose("/opt", MFile::Join(local, "opt"));
    case MSpecialFolderComponents: return choose("/usr/local/lib", MFile::Join(local, "lib"));
    case MSpecialFolderStartMenu:
    case MSpecialFolderStartMenuPrograms:
        return choose("/usr/local/share/applications", MFile::Join(data, "applications"));
    case MSpecialFolderUserStartMenu:
    case MSpecialFolderUserStartMenuPrograms: return MFile::Join(data, "applications");
    case MSpecialFolderDesktop:
    case MSpecialFolderUserDesktop: return user.GetNamed("DESKTOP", "Desktop");
    case MSpecialFolderSystem: return choose("/usr/local", local);
    case MSpecialFolderFonts: return choose("/usr/local/share/fonts", MFile::Join(data, "fonts"));
    case MSpecialFolderDownloads: return user.GetNamed("DOWNLOAD", "Downloads");
    case MSpecialFolderMusic: return user.GetNamed("MUSIC", "Music");
    case MSpecialFolderPictures: return user.GetNamed("PICTURES", "Pictures");
    case MSpecialFolderVideo: return user.GetNamed("VIDEOS", "Videos");
    case MSpecialFolderTemporary: return GetTemporary();
    default: return {};
    }
}

class PlatformFolders final : public MSpecialFolders {
public:
    MString GetPath(int32_t index) override { return FindPath(MUserFolders(), SharedChoice(), index); }
    MString GetPathOf(MFolderOwner owner, const MString& installation, int32_t index) override {
        return FindPath(MUserFolders::OfOwner(installation), SharedChoice(owner), index);
    }
};

}  // namespace

MSpecialFolders& MGetPlatformFolders() {
    static PlatformFolders folders;
    return folders;
}
