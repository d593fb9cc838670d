#include "foundation/files/MFolderFacts.h"

#include "foundation/base/MException.h"
#include "foundation/files/posix/MNativePath.h"

#include <algorithm>
#include <climits>
#include <limits>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

MVolume MFindVolume(const MString& folder) {
    MVolume volume;
    const std::string native = MNativePath(folder);
    struct stat status;
    if (stat(native.c_str(), &status) == 0)
        volume.name = MPathFromNative(std::to_string(uint64_t{status.st_dev}));
    struct statvfs system;
    if (statvfs(native.c_str(), &system) != 0) return volume;
    uint64_t bytes;
    constexpr auto Most = static_cast<uint64_t>(std::numeric_limits<int64_t>::max());
    if (__builtin_mul_overflow(uint64_t{system.f_bavail}, uint64_t{system.f_frsize}, &bytes)) bytes = Most;
    volume.freeBytes = static_cast<int64_t>(std::min(bytes, Most));
    volume.isReadOnly = (system.f_flag & ST_RDONLY) != 0;
    return volume;
}

MString MFindPathFault(const MString& path, const MString& folder) {
    const std::string native = MNativePath(path);
    if (native.find('\0') != std::string::npos)
        return MTranslate("The name holds a character that the system does not allow. Please change it.");
    const long limit = pathconf(MNativePath(folder).c_str(), _PC_NAME_MAX);
    const size_t longest = limit > 0 ? static_cast<size_t>(limit) : NAME_MAX;
    size_t start = 0;
    while (start < native.size()) {
        const size_t end = std::min(native.find('/', start), native.size());
        if (end - start > longest || native.size() >= PATH_MAX)
            return MTranslate("The name is longer than the system allows. Please choose a shorter one.");
        start = end + 1;
    }
    return MString();
}
