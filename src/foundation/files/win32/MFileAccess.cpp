#include "foundation/files/MFileAccess.h"

#include "foundation/files/win32/MNativePath.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/win32/MWindowsHeader.h"

namespace {

HANDLE OpenWith(const MString& path, DWORD access) {
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return CreateFileW(MNativePath(path).c_str(), access, ShareAll, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

/// False if the path leads to nothing.
bool GetIdentity(const MString& path, BY_HANDLE_FILE_INFORMATION& identity) {
    const HANDLE file = OpenWith(path, 0);
    const bool isFound = file != INVALID_HANDLE_VALUE && GetFileInformationByHandle(file, &identity);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    return isFound;
}

}  // namespace

bool MIsSameFile(const MString& first, const MString& second) {
    BY_HANDLE_FILE_INFORMATION one;
    BY_HANDLE_FILE_INFORMATION other;
    return GetIdentity(first, one) && GetIdentity(second, other) &&
           one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
           one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

bool MMayDelete(const MString& path) {
    const HANDLE file = OpenWith(path, DELETE);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() != ERROR_ACCESS_DENIED;
    CloseHandle(file);
    return true;
}

MString MWhoMayDelete(const MString& /*path*/) {
    return MTranslate("an administrator");
}
