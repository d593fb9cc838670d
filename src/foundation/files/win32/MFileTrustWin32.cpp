#include "foundation/base/MRaise.h"
#include "foundation/files/MFileTrust.h"
#include "foundation/files/win32/MFileHandle.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"

#include <aclapi.h>
#include <array>

namespace {

/// What stands at a path, a link itself and not what it leads to; null if there is nothing.
MFileHandle OpenUnfollowed(const MString& path, DWORD access) {
    return MOpenFileHandle(path, access, FILE_FLAG_OPEN_REPARSE_POINT);
}

/// False for links of all kinds. What the system stores elsewhere on its own account, in a cloud or without
/// duplicates, is no link.
bool GetAttributesOfNoLink(HANDLE file, DWORD& attributes) {
    FILE_ATTRIBUTE_TAG_INFO info;
    if (!GetFileInformationByHandleEx(file, FileAttributeTagInfo, &info, sizeof info)) return false;
    attributes = info.FileAttributes;
    return !(attributes & FILE_ATTRIBUTE_REPARSE_POINT) || !IsReparseTagNameSurrogate(info.ReparseTag);
}

bool IsThisUser(PSID owner) {
    HANDLE token = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return false;
    alignas(TOKEN_USER) std::array<BYTE, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> user;
    DWORD size = user.size();
    const bool isKnown = GetTokenInformation(token, TokenUser, user.data(), size, &size);
    CloseHandle(token);
    return isKnown && EqualSid(owner, reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid);
}

bool IsTrustedOwner(PSID owner) {
    // A volume without owners gives "everybody".
    return IsThisUser(owner) || IsWellKnownSid(owner, WinBuiltinAdministratorsSid) ||
           IsWellKnownSid(owner, WinLocalSystemSid) || IsWellKnownSid(owner, WinWorldSid);
}

}  // namespace

MFolderTrust MGetFolderTrust(const MString& path) {
    const MFileHandle folder = OpenUnfollowed(path, READ_CONTROL | FILE_READ_ATTRIBUTES);
    DWORD attributes = 0;
    if (!folder || !GetAttributesOfNoLink(folder.get(), attributes) ||
        !(attributes & FILE_ATTRIBUTE_DIRECTORY))
        return MFolderTrust::NoFolder;
    if (!MIsOnFixedDrive(path)) return MFolderTrust::Own;
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (GetSecurityInfo(folder.get(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr,
                        nullptr, &descriptor) != ERROR_SUCCESS)
        return MFolderTrust::Foreign;
    const bool isTrusted = owner && IsTrustedOwner(owner);
    LocalFree(descriptor);
    return isTrusted ? MFolderTrust::Own : MFolderTrust::Foreign;
}

void MCreateOwnFolder(const MString& path) {
    if (!CreateDirectoryW(MNativePath(path).c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        MRaise(MExceptionGeneral, "Could not create path \"{0}\". {1}", path, MSystemErrorText());
}

bool MIsPlainFile(const MString& path) {
    constexpr DWORD Others = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;
    const MFileHandle file = OpenUnfollowed(path, FILE_READ_ATTRIBUTES);
    DWORD attributes = 0;
    return file && GetAttributesOfNoLink(file.get(), attributes) && !(attributes & Others);
}
