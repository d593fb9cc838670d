#include "foundation/files/MFileIdentity.h"

#include "foundation/files/posix/MNativePath.h"

#include <sys/stat.h>

std::optional<MFileIdentity> MFindFileIdentity(const MString& path) {
    struct stat status;
    if (stat(MNativePath(path).c_str(), &status) != 0) return std::nullopt;
    return MFileIdentity{static_cast<uint64_t>(status.st_dev), static_cast<uint64_t>(status.st_ino)};
}
