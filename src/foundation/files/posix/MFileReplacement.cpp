#include "foundation/files/MFileReplacement.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MFileWay.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/module/MPlatform.h"

#include <cstdio>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace {

bool Sync(const MString& path) {
    const int file = open(MNativePath(path).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool isDone = fsync(file) == 0;
    close(file);
    return isDone;
}

/// Among them are the lists of who may do what with a file.
void CopyExtendedAttributes(const char* from, int to) {
    std::vector<char> names(0x10000);
    std::vector<char> value(0x10000);
    const ssize_t length = listxattr(from, names.data(), names.size());
    for (ssize_t i = 0; i < length;) {
        const std::string_view name = names.data() + i;
        const ssize_t size = getxattr(from, name.data(), value.data(), value.size());
        if (size >= 0) (void)fsetxattr(to, name.data(), value.data(), static_cast<size_t>(size), 0);
        i += static_cast<ssize_t>(name.size()) + 1;
    }
}

}  // namespace

void MSyncFile(const MString& path) {
    if (!Sync(path))
        MRaise(MExceptionStreamError, "Error writing to file \"{0}\". Probably disk full.", path);
}

void MReplaceFile(const MString& from, const MString& to) {
    const MFileWay target(to);
    const int result = MFileWay(from).Do([&](int folder, const char* name) {
        return target.Do(
            [&](int newFolder, const char* newName) { return renameat(folder, name, newFolder, newName); });
    });
    if (result != 0)
        MRaise(MExceptionGeneral, "Could not rename file \"{0}\" to \"{1}\". {2}", from, to,
               MSystemErrorText());
    // The file is in its place; a directory that cannot be synced loses at most the new name.
    (void)Sync(MFile::GetDirectory(to));
}

MRewriteWay MFindRewriteWay(const MString& path) {
    constexpr mode_t AnyoneWrites = S_IWUSR | S_IWGRP | S_IWOTH;
    const std::string native = MNativePath(path);
    const std::string folderName = MNativePath(MFile::GetDirectory(path));
    struct stat file;
    struct stat folder;
    // Permissions do not keep the administrator from anything, but they tell what the owner wants.
    if (stat(native.c_str(), &file) != 0 || !(file.st_mode & AnyoneWrites)) return MRewriteWay::None;
    const uid_t user = geteuid();
    const bool isFree =
        access(folderName.c_str(), W_OK | X_OK) == 0 && stat(folderName.c_str(), &folder) == 0 &&
        folder.st_dev == file.st_dev &&
        (!(folder.st_mode & S_ISVTX) || user == 0 || user == file.st_uid || user == folder.st_uid);
    if (isFree && !MFile::IsLink(path)) return MRewriteWay::Replace;
    return access(native.c_str(), W_OK) == 0 ? MRewriteWay::InPlace : MRewriteWay::None;
}

void MLinkFile(const MString& path, const MString& name) {
    const std::string second = MNativePath(MFile::GetFileName(name));
    const auto link = [&](int folder, const char* first) {
        return linkat(folder, first, folder, second.c_str(), 0);
    };
    if (MFileWay(path).Do(link) != 0)
        MRaise(MExceptionGeneral, "Could not create file link at \"{0}\" to \"{1}\". {2}", name, path,
               MSystemErrorText());
}

// Nothing is done by the name: somebody who may write into the folder could put a link under it.
void MCopyOwnership(const MString& from, const MString& /*to*/, std::FILE* file) {
    const int target = fileno(file);
    struct stat status;
    if (stat(MNativePath(from).c_str(), &status) != 0) return;
    mode_t mode = status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    if (fchown(target, static_cast<uid_t>(-1), status.st_gid) != 0) mode &= ~mode_t{S_IRWXG};
    (void)!fchown(target, status.st_uid, static_cast<gid_t>(-1));
    (void)!fchmod(target, mode);
    CopyExtendedAttributes(MNativePath(from).c_str(), target);
}
