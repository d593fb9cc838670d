#include "foundation/files/MFolderLock.h"

#include "foundation/files/MFile.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/text/MUnicode.h"
#include "foundation/win32/MWindowsHeader.h"

namespace {

HANDLE OpenLock(const MString& path, DWORD access, DWORD share, DWORD creation, DWORD flags) {
    return CreateFileW(MNativePath(path).c_str(), access, share, nullptr, creation,
                       flags | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

}  // namespace

MFolderLock::Attempt MFolderLock::Try(const MString& holder) {
    const HANDLE opened = OpenLock(path, GENERIC_WRITE | DELETE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                   OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE);
    if (opened == INVALID_HANDLE_VALUE) {
        const DWORD reason = GetLastError();
        // One that is just being deleted denies access too.
        const bool isHeld = reason == ERROR_SHARING_VIOLATION ||
                            (reason == ERROR_ACCESS_DENIED && MFile::IsWritable(MFile::GetDirectory(path)));
        return isHeld ? Attempt::Held : Attempt::Impossible;
    }
    file = reinterpret_cast<intptr_t>(opened);
    const std::string text = MEncodeUTF8Exact(MFormat("{0} (process {1})", holder, GetCurrentProcessId()));
    DWORD written;
    (void)WriteFile(opened, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    return Attempt::Taken;
}

void MFolderLock::Release() {
    CloseHandle(reinterpret_cast<HANDLE>(file));
}

MString MFolderLock::ReadHolder() const {
    constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE opened = OpenLock(path, GENERIC_READ, ShareAll, OPEN_EXISTING, 0);
    char text[1024];
    DWORD count = 0;
    const bool isRead =
        opened != INVALID_HANDLE_VALUE && ReadFile(opened, text, sizeof text, &count, nullptr);
    if (opened != INVALID_HANDLE_VALUE) CloseHandle(opened);
    return isRead ? MDecodeUTF8Exact({text, count}) : MString();
}
