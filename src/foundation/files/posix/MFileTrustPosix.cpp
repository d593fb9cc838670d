#include "foundation/base/MRaise.h"
#include "foundation/files/MFileTrust.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/module/MPlatform.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The group that has the user's own name, is the user's main one and has nobody else in it.
bool IsPrivateGroup(gid_t id) {
    std::array<char, 4096> userText;
    std::array<char, 4096> groupText;
    passwd user;
    passwd* foundUser = nullptr;
    group group;
    struct group* foundGroup = nullptr;
    if (getpwuid_r(geteuid(), &user, userText.data(), userText.size(), &foundUser) != 0 || !foundUser ||
        user.pw_gid != id)
        return false;
    if (getgrgid_r(id, &group, groupText.data(), groupText.size(), &foundGroup) != 0 || !foundGroup ||
        std::strcmp(group.gr_name, user.pw_name) != 0)
        return false;
    for (char** member = group.gr_mem; *member; ++member)
        if (std::strcmp(*member, user.pw_name) != 0) return false;
    return true;
}

}  // namespace

MFolderTrust MGetFolderTrust(const MString& path) {
    struct stat status;
    if (lstat(MNativePath(path).c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return MFolderTrust::NoFolder;
    if (status.st_uid != geteuid() && status.st_uid != 0) return MFolderTrust::Foreign;
    const bool isGroupShared = (status.st_mode & S_IWGRP) && !IsPrivateGroup(status.st_gid);
    return (status.st_mode & S_IWOTH) || isGroupShared ? MFolderTrust::Shared : MFolderTrust::Own;
}

void MCreateOwnFolder(const MString& path) {
    if (mkdir(MNativePath(path).c_str(), 0755) != 0 && errno != EEXIST)
        MRaise(MExceptionGeneral, "Could not create path \"{0}\". {1}", path, MSystemErrorText());
}

bool MIsPlainFile(const MString& path) {
    struct stat status;
    return lstat(MNativePath(path).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}
