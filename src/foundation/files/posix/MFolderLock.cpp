#include "foundation/files/MFolderLock.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/posix/MFileWay.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int Flags = O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;

int Open(const MFileWay& way, int flags) {
    return way.Do(
        [flags](int folder, const char* name) { return openat(folder, name, flags | Flags, 0644); });
}

/// Whether a path still leads to an open file, of which `opened` becomes the status.
bool IsAt(int file, const MFileWay& way, struct stat& opened) {
    struct stat found;
    const auto look = [&found](int folder, const char* name) {
        return fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW);
    };
    return fstat(file, &opened) == 0 && way.Do(look) == 0 && opened.st_dev == found.st_dev &&
           opened.st_ino == found.st_ino;
}

}  // namespace

MFolderLock::Attempt MFolderLock::Try(const MString& holder) {
    const MFileWay way(path);
    int opened = Open(way, O_RDWR | O_CREAT);
    // One that a killed run of another user has left can be locked, but not written.
    if (opened < 0 && errno == EACCES) opened = Open(way, O_RDONLY);
    if (opened < 0) return Attempt::Impossible;
    if (flock(opened, LOCK_EX | LOCK_NB) != 0) {
        const bool isHeld = errno == EWOULDBLOCK;
        close(opened);
        return isHeld ? Attempt::Held : Attempt::Impossible;
    }
    struct stat status;
    if (!IsAt(opened, way, status)) {
        // The one who held it has deleted it since it was opened here.
        close(opened);
        return Attempt::Held;
    }
    file = opened;
    const std::string text = MEncodeUTF8Exact(MFormat("{0} (process {1})", holder, getpid()));
    // A file that has other names too holds something else.
    if (status.st_nlink == 1 && ftruncate(opened, 0) == 0) (void)!write(opened, text.data(), text.size());
    return Attempt::Taken;
}

void MFolderLock::Release() {
    MGuard("MFolderLock", [this] { MFile::Delete(path); });
    close(static_cast<int>(file));
}

MString MFolderLock::ReadHolder() const {
    char text[1024];
    const int opened = open(MNativePath(path).c_str(), O_RDONLY | Flags);
    const ssize_t count = opened < 0 ? 0 : read(opened, text, sizeof text);
    if (opened >= 0) close(opened);
    return MDecodeUTF8Exact({text, count < 0 ? 0 : static_cast<size_t>(count)});
}
