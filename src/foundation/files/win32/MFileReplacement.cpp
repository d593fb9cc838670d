#include "foundation/files/MFileReplacement.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"

void MSyncFile(const MString& path) {
    const HANDLE file = CreateFileW(MNativePath(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const bool isDone = file != INVALID_HANDLE_VALUE && FlushFileBuffers(file);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    if (!isDone) MRaise(MExceptionStreamError, "Error writing to file \"{0}\". Probably disk full.", path);
}

void MReplaceFile(const MString& from, const MString& to) {
    constexpr DWORD Flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    const std::wstring target = MNativePath(to);
    const DWORD attributes = GetFileAttributesW(target.c_str());
    // The system replaces no write-protected file.
    if (attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_READONLY)
        SetFileAttributesW(target.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    if (!MoveFileExW(MNativePath(from).c_str(), target.c_str(), Flags))
        MRaise(MExceptionGeneral, "Could not rename file \"{0}\" to \"{1}\". {2}", from, to,
               MSystemErrorText());
}
