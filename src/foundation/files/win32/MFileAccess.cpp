#include "foundation/files/MFileAccess.h"

#include "foundation/base/MException.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/win32/MWindowsHeader.h"

bool MMayDelete(const MString& path) {
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE file = CreateFileW(MNativePath(path).c_str(), DELETE, ShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() != ERROR_ACCESS_DENIED;
    CloseHandle(file);
    return true;
}

MString MWhoMayDelete(const MString& /*path*/) {
    return MTranslate("an administrator");
}
