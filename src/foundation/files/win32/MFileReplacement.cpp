#include "foundation/files/MFileReplacement.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/win32/MFileHandle.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"

#include <vector>

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

MRewriteWay MFindRewriteWay(const MString& path) {
    const DWORD attributes = GetFileAttributesW(MNativePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || attributes & FILE_ATTRIBUTE_READONLY ||
        !MOpenFileHandle(path, GENERIC_WRITE))
        return MRewriteWay::None;
    // A program that has the file open may let others write into it and not let them replace it.
    const bool isFree = !(attributes & FILE_ATTRIBUTE_REPARSE_POINT) && MOpenFileHandle(path, DELETE);
    return isFree ? MRewriteWay::Replace : MRewriteWay::InPlace;
}

void MLinkFile(const MString& path, const MString& name) {
    if (!CreateHardLinkW(MNativePath(name).c_str(), MNativePath(path).c_str(), nullptr))
        MRaise(MExceptionGeneral, "Could not create file link at \"{0}\" to \"{1}\". {2}", name, path,
               MSystemErrorText());
}

void MCopyOwnership(const MString& from, const MString& to, std::FILE* /*file*/) {
    const std::wstring source = MNativePath(from);
    const std::wstring target = MNativePath(to);
    DWORD size = 0;
    GetFileSecurityW(source.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<BYTE> permissions(size);
    if (GetFileSecurityW(source.c_str(), DACL_SECURITY_INFORMATION, permissions.data(), size, &size))
        SetFileSecurityW(target.c_str(), DACL_SECURITY_INFORMATION, permissions.data());
    const DWORD attributes = GetFileAttributesW(source.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) SetFileAttributesW(target.c_str(), attributes);
}
