#include "foundation/files/posix/MFileWay.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/MSharedFolders.h"
#include "foundation/files/posix/MNativePath.h"
#include "foundation/files/posix/MUserName.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int FolderFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr int MostLinks = 40;  // as the system has it

/// A folder that is open for naming what is in it.
using Folder = std::shared_ptr<const int>;

/// Null on failure. Without `parent` the path begins at the root or the current directory.
Folder OpenFolder(const Folder& parent, const char* name) {
    const int handle = openat(parent ? *parent : AT_FDCWD, name, FolderFlags);
    if (handle < 0) return nullptr;
    return Folder(new int(handle), [](const int* opened) {
        close(*opened);
        delete opened;
    });
}

bool IsTrusted(uid_t owner) {
    return owner == 0 || owner == geteuid();
}

/// Whether somebody else may put other things into a folder in place of what is there.
bool IsShared(const struct stat& status) {
    if (!IsTrusted(status.st_uid)) return true;
    if (status.st_mode & S_ISVTX) return false;
    // To an ordinary user the group may be that user's own.
    const bool isOpenToGroup = (status.st_mode & S_IWGRP) && status.st_gid != 0 && geteuid() == 0;
    return (status.st_mode & S_IWOTH) || isOpenToGroup;
}

/// Goes along a path, of which `rest` is still to be gone.
class Walk {
public:
    explicit Walk(const std::string& path)
        : rest(path), folder(OpenFolder(nullptr, path.starts_with('/') ? "/" : ".")) {}

    /// Enters all folders but the last name, which is left in `name`. Null where a folder is missing.
    Folder Go(MLastLink lastLink, std::string& name) {
        while (folder && TakeComponent(name)) {
            const bool isLast = rest.find_first_not_of('/') == std::string::npos;
            if (isLast && lastLink == MLastLink::Keep) break;
            struct stat status;
            if (fstatat(*folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
                return isLast ? folder : nullptr;
            if (S_ISLNK(status.st_mode)) {
                if (!Follow(name, status.st_uid)) return nullptr;
                continue;
            }
            if (isLast) break;
            folder = OpenFolder(folder, name.c_str());
            gone += "/" + name;
            if (folder && IsShared(status)) MNoteSharedFolder(MPathFromNative(gone));
        }
        return folder;
    }

private:
    bool TakeComponent(std::string& name) {
        const size_t start = rest.find_first_not_of('/');
        if (start == std::string::npos) return false;
        const size_t end = std::min(rest.find('/', start), rest.size());
        name = rest.substr(start, end - start);
        rest.erase(0, end);
        return true;
    }
    bool Follow(const std::string& name, uid_t owner) {
        if (!IsTrusted(owner))
            MRaise(MExceptionGeneral, "The link \"{0}\" is not followed: it belongs to another user ({1}).",
                   MPathFromNative(gone + "/" + name), MGetUserName(owner));
        std::array<char, PATH_MAX> target;
        const ssize_t length = readlinkat(*folder, name.c_str(), target.data(), target.size());
        if (length <= 0) return false;
        if (++links > MostLinks) {
            errno = ELOOP;
            return false;
        }
        rest.insert(0, target.data(), static_cast<size_t>(length));
        if (target[0] != '/') return true;
        folder = OpenFolder(nullptr, "/");
        gone.clear();
        return folder != nullptr;
    }

    std::string rest;
    std::string gone;
    Folder folder;
    int links = 0;
};

/// At the end of a thread what it remembers is gone before the last files are: static objects delete some.
thread_local constinit bool isMemoryGone = false;

/// What the last walk of a thread has come to.
struct LastWalk {
    LastWalk() = default;
    LastWalk(const LastWalk&) = delete;
    LastWalk& operator=(const LastWalk&) = delete;
    ~LastWalk() { isMemoryGone = true; }

    std::string path;
    Folder folder;
    dev_t device = 0;
    ino_t file = 0;
};

thread_local LastWalk lastWalk;

/// Whether the remembered folder is still what a path, of which it is the first part, leads to.
bool IsRemembered(std::string_view path) {
    struct stat now;
    return !isMemoryGone && lastWalk.folder && lastWalk.path == path &&
           stat(lastWalk.path.c_str(), &now) == 0 && lastWalk.device == now.st_dev &&
           lastWalk.file == now.st_ino;
}

void Remember(std::string_view path, const Folder& folder) {
    struct stat status;
    if (isMemoryGone || !folder || fstat(*folder, &status) != 0) return;
    lastWalk.path = path;
    lastWalk.folder = folder;
    lastWalk.device = status.st_dev;
    lastWalk.file = status.st_ino;
}

}  // namespace

MFileWay::MFileWay(const MString& path, MLastLink lastLink) : name(MNativePath(path)) {
    if (lastLink == MLastLink::Follow) {
        folder = Walk(name).Go(lastLink, name);
        error = errno;
        return;
    }
    const size_t parentLength = name.rfind('/') + 1;
    if (IsRemembered({name.data(), parentLength})) {
        folder = lastWalk.folder;
        nameStart = parentLength;
        return;
    }
    const std::string parent = name.substr(0, parentLength);
    folder = Walk(name).Go(lastLink, name);
    error = errno;
    Remember(parent, folder);
}
