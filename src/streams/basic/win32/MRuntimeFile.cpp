#include "streams/basic/MRuntimeFile.h"

#include "foundation/base/MGuard.h"
#include "foundation/files/MFile.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

namespace {

/// Of the descriptor's calls, which alone can keep a file from being inherited by every version of the
/// runtime library.
constexpr int CommonFlags = _O_BINARY | _O_NOINHERIT;

/// Null for what is no file of bytes.
std::FILE* Open(const MString& path, int flags, const char* mode) {
    const int descriptor = _wopen(MNativePath(path).c_str(), flags | CommonFlags, _S_IREAD | _S_IWRITE);
    if (descriptor < 0) return nullptr;
    if (GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor))) == FILE_TYPE_DISK)
        if (std::FILE* file = _fdopen(descriptor, mode)) return file;
    _close(descriptor);
    return nullptr;
}

}  // namespace

std::FILE* MOpenRuntimeFile(const MString& path, MRuntimeAccess access) {
    return access == MRuntimeAccess::Read ? Open(path, _O_RDONLY, "rb") : Open(path, _O_RDWR, "r+b");
}

std::FILE* MCreateRuntimeFile(const MString& path) {
    constexpr int Create = _O_RDWR | _O_CREAT | _O_EXCL;
    std::FILE* created = Open(path, Create, "r+b");
    if (created || errno != EEXIST || MFile::IsDirectory(path)) return created;
    if (MGuard("MCreateRuntimeFile", [&] { MFile::Delete(path); })) return Open(path, Create, "r+b");
    return MFile::IsLink(path) ? nullptr : Open(path, _O_RDWR | _O_TRUNC, "r+b");
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
