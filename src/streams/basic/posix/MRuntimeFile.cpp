#include "streams/basic/MRuntimeFile.h"

#include "foundation/files/MFile.h"
#include "foundation/files/posix/MFileWay.h"
#include "foundation/files/posix/MNativePath.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A pipe is not waited for, and a terminal does not become this process's own.
constexpr int CommonFlags = O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

/// Takes a descriptor, of which null is made if it is not that of a file of bytes.
std::FILE* MakeFile(int descriptor, const char* mode) {
    if (descriptor < 0) return nullptr;
    struct stat status;
    if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
        if (std::FILE* file = fdopen(descriptor, mode)) return file;
    close(descriptor);
    return nullptr;
}

}  // namespace

std::FILE* MOpenRuntimeFile(const MString& path, MRuntimeAccess access) {
    if (access == MRuntimeAccess::Read)
        return MakeFile(open(MNativePath(path).c_str(), O_RDONLY | CommonFlags), "rb");
    const MFileWay way(path, MLastLink::Follow);
    return MakeFile(way.Do([](int folder, const char* name) {
        return openat(folder, name, O_RDWR | O_NOFOLLOW | CommonFlags);
    }),
                    "r+b");
}

std::FILE* MCreateRuntimeFile(const MString& path) {
    constexpr int Flags = O_RDWR | O_NOFOLLOW | CommonFlags;
    const auto create = [](int folder, const char* name) {
        return openat(folder, name, Flags | O_CREAT | O_EXCL, 0666);
    };
    const MFileWay way(path);
    const int created = way.Do(create);
    if (created >= 0 || errno != EEXIST) return MakeFile(created, "r+b");
    if (MFile::IsDevice(path)) return nullptr;
    const auto remove = [](int folder, const char* name) { return unlinkat(folder, name, 0); };
    if (way.Do(remove) == 0) return MakeFile(way.Do(create), "r+b");
    const auto openExisting = [](int folder, const char* name) { return openat(folder, name, Flags); };
    std::FILE* file = MakeFile(way.Do(openExisting), "r+b");
    if (file && ftruncate(fileno(file), 0) == 0) return file;
    if (file) std::fclose(file);
    return nullptr;
}

bool MSeekRuntimeFile(std::FILE* file, int64_t offset, int origin) {
    return fseeko(file, static_cast<off_t>(offset), origin) == 0;
}

int64_t MTellRuntimeFile(std::FILE* file) {
    return ftello(file);
}

bool MTruncateRuntimeFile(std::FILE* file, int64_t size) {
    return ftruncate(fileno(file), static_cast<off_t>(size)) == 0;
}

bool MSyncRuntimeFile(std::FILE* file) {
    return fsync(fileno(file)) == 0;
}

bool MReserveRuntimeFile(std::FILE* file, int64_t size) {
    return size <= 0 || fallocate(fileno(file), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0 ||
           (errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
}
