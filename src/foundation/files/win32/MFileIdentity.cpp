#include "foundation/files/MFileIdentity.h"

#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"

std::optional<MFileIdentity> MFindFileIdentity(const MString& path) {
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    // Directories are opened only with the flag for backups.
    const HANDLE handle = CreateFileW(MNativePath(path).c_str(), 0, shareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    BY_HANDLE_FILE_INFORMATION information;
    const bool isTold = GetFileInformationByHandle(handle, &information) != 0;
    CloseHandle(handle);
    if (!isTold) return std::nullopt;
    return MFileIdentity{information.dwVolumeSerialNumber,
                         uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}
