#include "foundation/files/MFileList.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/posix/MNativePath.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <memory>
#include <sys/stat.h>

namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { closedir(directory); }
};

bool IsDirectoryEntry(DIR* directory, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return entry.d_type == DT_DIR;
    struct stat status;
    return fstatat(dirfd(directory), entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

MList<MFileListEntry> MListDirectory(const MString& directory, const MString& filter) {
    const std::unique_ptr<DIR, CloseDirectory> handle(opendir(MNativePath(directory).c_str()));
    const auto raise = [&] {
        MRaise(MExceptionGeneral, "Could not access path \"{0}\" to get file list.", directory);
    };
    if (!handle) raise();

    MList<MFileListEntry> list;
    const std::string pattern = filter.IsEmpty() || filter == "*.*" ? "*" : MNativePath(filter);
    errno = 0;
    while (const dirent* entry = readdir(handle.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != ".." && fnmatch(pattern.c_str(), entry->d_name, 0) == 0)
            list.Add({MPathFromNative(name), IsDirectoryEntry(handle.get(), *entry)});
        errno = 0;
    }
    if (errno != 0) raise();
    return list;
}
