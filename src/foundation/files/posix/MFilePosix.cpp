#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/MFileReplacement.h"
#include "foundation/files/posix/MFileWay.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/module/MPlatform.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int64_t MicrosecondsPerSecond = 1000000;

/// What kind of file stands at a path, 0 if there is none.
mode_t GetKind(const MString& path, bool followLinks) {
    struct stat status;
    const std::string native = MNativePath(path);
    const int result = followLinks ? stat(native.c_str(), &status) : lstat(native.c_str(), &status);
    return result == 0 ? status.st_mode & S_IFMT : 0;
}

/// Fails with EEXIST, as the other platform does, where plain renaming would replace the target.
int RenameWithoutReplacing(const MFileWay& from, const MFileWay& to) {
    return from.Do([&](int fromFolder, const char* fromName) {
        return to.Do([&](int toFolder, const char* toName) {
            const int result = renameat2(fromFolder, fromName, toFolder, toName, RENAME_NOREPLACE);
            if (result == 0 || (errno != EINVAL && errno != ENOSYS)) return result;
            // Not every file system knows the flag.
            if (faccessat(toFolder, toName, F_OK, AT_SYMLINK_NOFOLLOW) == 0) {
                errno = EEXIST;
                return -1;
            }
            return renameat(fromFolder, fromName, toFolder, toName);
        });
    });
}

/// Deletes by `unlinkat`.
bool Unlink(const MString& path, int flags) {
    return MFileWay(path).Do(
               [flags](int folder, const char* name) { return unlinkat(folder, name, flags); }) == 0;
}

/// As a new file of ours is opened whose permissions are to be changed.
int OpenUnfollowed(const MString& path) {
    return MFileWay(path).Do([](int folder, const char* name) {
        return openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    });
}

bool MakeDirectory(const MString& path) {
    return MFileWay(path).Do([](int folder, const char* name) { return mkdirat(folder, name, 0777); }) == 0;
}

}  // namespace

bool MFile::Exists(const MString& path) {
    return path.IsEmpty() || GetKind(path, false) != 0;
}

bool MFile::IsDirectory(const MString& path) {
    return path.IsEmpty() || GetKind(path, true) == S_IFDIR;
}

bool MFile::IsLink(const MString& path) {
    return GetKind(path, false) == S_IFLNK;
}

bool MFile::IsDevice(const MString& path) {
    const mode_t kind = GetKind(path, true);
    return kind != 0 && kind != S_IFREG && kind != S_IFDIR;
}

bool MFile::IsValidDirectory(const MString& path) {
    return IsDirectory(path);
}

bool MFile::IsWritable(const MString& path) {
    return access(MNativePath(path).c_str(), W_OK) == 0;
}

int64_t MFile::GetFileTime(const MString& path) {
    struct stat status;
    if (stat(MNativePath(path).c_str(), &status) != 0)
        MRaise(MExceptionGeneral, "Cannot retrieve file time of  \"{0}\".", path);
    return status.st_mtim.tv_sec * MicrosecondsPerSecond + status.st_mtim.tv_nsec / 1000;
}

void MFile::SetFileTime(const MString& path, int64_t time) {
    int64_t seconds = time / MicrosecondsPerSecond;
    int64_t rest = time % MicrosecondsPerSecond;
    if (rest < 0) {
        --seconds;
        rest += MicrosecondsPerSecond;
    }
    const timespec times[2] = {{0, UTIME_OMIT}, {seconds, rest * 1000}};
    if (utimensat(AT_FDCWD, MNativePath(path).c_str(), times, 0) != 0)
        MRaise(MExceptionGeneral, "Could not set system times to {0}.", path);
}

void MFile::CreateDirectory(const MString& path) {
    if (IsDirectory(path) || MakeDirectory(path)) return;
    const MString reason = MSystemErrorText();
    // Somebody else may have created it at the same moment.
    if (!IsDirectory(path)) MRaise(MExceptionGeneral, "Could not create path \"{0}\". {1}", path, reason);
}

void MFile::Rename(const MString& from, const MString& to) {
    if (RenameWithoutReplacing(MFileWay(from), MFileWay(to)) == 0) return;
    if (errno != EXDEV || Exists(to))
        MRaise(MExceptionGeneral, "Could not rename file \"{0}\" to \"{1}\".", from, to);
    // Under its name it is there whole or not at all.
    const MString copy = to + ".unfinished";
    try {
        Copy(from, copy);
        MSyncFile(copy);
        Rename(copy, to);
    } catch (const MException&) {
        MGuard("MFile::Rename", [&] { DeleteTree(copy); });
        throw;
    }
    DeleteTree(from);
}

void MFile::Delete(const MString& path) {
    if (!Unlink(path, 0)) MRaise(MExceptionGeneral, "Could not delete file \"{0}\".", path);
}

void MFile::RemoveDirectory(const MString& path) {
    if (!Unlink(path, AT_REMOVEDIR)) MRaise(MExceptionGeneral, "Could not remove directory \"{0}\".", path);
}

void MFile::MakeExecutable(const MString& path) {
    const int file = OpenUnfollowed(path);
    struct stat status;
    bool isDone = false;
    if (file >= 0 && fstat(file, &status) == 0) {
        const mode_t readers = status.st_mode & (S_IRUSR | S_IRGRP | S_IROTH);
        isDone = fchmod(file, (status.st_mode & 07777) | readers >> 2) == 0;
    }
    if (file >= 0) close(file);
    if (!isDone) MRaise(MExceptionGeneral, "Could not make file \"{0}\" executable.", path);
}

MString MFile::ResolvePath(const MString& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(MNativePath(path).c_str(), nullptr),
                                                               std::free);
    if (!resolved) MRaise(MExceptionGeneral, "Could not resolve path {0}.", path);
    return MPathFromNative(resolved.get());
}

MString MFile::GetCurrentPath() {
    const std::unique_ptr<char, decltype(&std::free)> current(getcwd(nullptr, 0), std::free);
    return current ? Normalize(MPathFromNative(current.get())) : MString();
}

void MFile::SetCurrentPath(const MString& path) {
    (void)!chdir(MNativePath(path).c_str());
}

MList<MString> MFile::GetDrives() {
    MList<MString> drives;
    drives.Add("/");
    return drives;
}
