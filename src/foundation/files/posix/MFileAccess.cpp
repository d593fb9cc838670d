#include "foundation/files/MFileAccess.h"

#include "foundation/files/MFile.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/files/posix/MUserName.h"
#include "foundation/text/MStringFormatter.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct stat GetStatus(const MString& path) {
    struct stat status = {};
    (void)lstat(MNativePath(path).c_str(), &status);
    return status;
}

MString NameOwner(uid_t user) {
    const char* const text =
        user == geteuid() ? "the user {0} after the folder has been made writable" : "the user {0}";
    return MFormat(MTranslate(text), MGetUserName(user));
}

}  // namespace

bool MMayDelete(const MString& path) {
    const MString directory = MFile::GetDirectory(path);
    if (faccessat(AT_FDCWD, MNativePath(directory).c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        return errno != EACCES && errno != EROFS;
    const struct stat status = GetStatus(directory);
    const uid_t user = geteuid();
    return (status.st_mode & S_ISVTX) == 0 || user == 0 || user == status.st_uid ||
           user == GetStatus(path).st_uid;
}

MString MWhoMayDelete(const MString& path) {
    // Where anybody may write, the owner of the file may delete it, elsewhere that of the directory.
    const struct stat directory = GetStatus(MFile::GetDirectory(path));
    return NameOwner((directory.st_mode & S_ISVTX) != 0 ? GetStatus(path).st_uid : directory.st_uid);
}

bool MMayCreate(MNewEntry /*entry*/, const MString& folder) {
    return faccessat(AT_FDCWD, MNativePath(folder).c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

MString MWhoMayCreate(const MString& folder) {
    struct stat status = {};
    (void)stat(MNativePath(folder).c_str(), &status);
    return NameOwner(status.st_uid);
}
