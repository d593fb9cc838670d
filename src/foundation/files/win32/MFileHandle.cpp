#include "foundation/files/win32/MFileHandle.h"

#include "foundation/files/win32/MNativePath.h"

MFileHandle MOpenFileHandle(const MString& path, DWORD access, DWORD flags) {
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    // Directories are opened only with the flag for backups.
    const HANDLE handle = CreateFileW(MNativePath(path).c_str(), access, ShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
    return MFileHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

bool MIsOnFixedDrive(const MString& path) {
    return path.GetLength() > 1 && path[1] == u':' &&
           GetDriveTypeW((MToWide(path.Substring(0, 2)) + L"\\").c_str()) == DRIVE_FIXED;
}
