#include "streams/basic/MRuntimeFile.h"

#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"

#include <cstring>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

namespace {

/// The mode in the form of the descriptor's call, which alone can keep a file from being inherited by every
/// version of the runtime library.
int GetFlags(const char* mode) {
    int flags = _O_BINARY | _O_NOINHERIT;
    flags |= std::strchr(mode, '+') ? _O_RDWR : _O_RDONLY;
    if (*mode == 'w') flags |= _O_CREAT | _O_TRUNC;
    return flags;
}

}  // namespace

std::FILE* MOpenRuntimeFile(const MString& path, const char* mode) {
    const int descriptor = _wopen(MNativePath(path).c_str(), GetFlags(mode), _S_IREAD | _S_IWRITE);
    if (descriptor < 0) return nullptr;
    std::FILE* file = _fdopen(descriptor, mode);
    if (!file) _close(descriptor);
    return file;
}

bool MSeekRuntimeFile(std::FILE* file, int64_t offset, int origin) {
    return _fseeki64(file, offset, origin) == 0;
}

int64_t MTellRuntimeFile(std::FILE* file) {
    return _ftelli64(file);
}

bool MTruncateRuntimeFile(std::FILE* file, int64_t size) {
    return _chsize_s(_fileno(file), size) == 0;
}

bool MSyncRuntimeFile(std::FILE* file) {
    return _commit(_fileno(file)) == 0;
}

bool MReserveRuntimeFile(std::FILE* file, int64_t size) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
    FILE_ALLOCATION_INFO info;
    LARGE_INTEGER before;
    info.AllocationSize.QuadPart = size;
    // An allocation below the length would cut the file.
    if (!GetFileSizeEx(handle, &before) || size <= before.QuadPart) return true;
    return SetFileInformationByHandle(handle, FileAllocationInfo, &info, sizeof info) ||
           GetLastError() != ERROR_DISK_FULL;
}
