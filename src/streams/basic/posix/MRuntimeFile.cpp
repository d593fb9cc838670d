#include "streams/basic/MRuntimeFile.h"

#include "foundation/files/posix/MNativePath.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

std::FILE* MOpenRuntimeFile(const MString& path, const char* mode) {
    std::FILE* file = std::fopen(MNativePath(path).c_str(), (std::string(mode) + 'e').c_str());
    if (!file) return nullptr;
    // The runtime library opens a directory for reading and fails only later.
    struct stat status;
    if (fstat(fileno(file), &status) == 0 && !S_ISDIR(status.st_mode)) return file;
    std::fclose(file);
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
