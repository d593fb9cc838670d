#include "foundation/files/MFileAccess.h"

#include "foundation/base/MException.h"
#include "foundation/files/win32/MFileHandle.h"

#include <aclapi.h>
#include <array>

namespace {

/// A token by which the rights of this process can be checked; null on failure.
MFileHandle GetTokenToCheck() {
    HANDLE process = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY | TOKEN_DUPLICATE, &process)) return nullptr;
    const MFileHandle owned(process);
    HANDLE token = nullptr;
    return MFileHandle(DuplicateToken(process, SecurityIdentification, &token) ? token : nullptr);
}

/// What the rights that are noted on a folder say. True where they cannot be read, and where there are none.
bool GrantsByDescriptor(HANDLE folder, DWORD access) {
    constexpr SECURITY_INFORMATION Parts =
        OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (GetSecurityInfo(folder, SE_FILE_OBJECT, Parts, nullptr, nullptr, nullptr, nullptr, &descriptor) !=
        ERROR_SUCCESS)
        return true;
    GENERIC_MAPPING mapping{FILE_GENERIC_READ, FILE_GENERIC_WRITE, FILE_GENERIC_EXECUTE, FILE_ALL_ACCESS};
    alignas(PRIVILEGE_SET) std::array<BYTE, 1024> privileges;
    DWORD size = privileges.size();
    DWORD granted = 0;
    BOOL isGranted = FALSE;
    const bool isChecked =
        AccessCheck(descriptor, GetTokenToCheck().get(), access, &mapping,
                    reinterpret_cast<PRIVILEGE_SET*>(privileges.data()), &size, &granted, &isGranted);
    LocalFree(descriptor);
    return !isChecked || isGranted;
}

}  // namespace

bool MMayDelete(const MString& path) {
    return MOpenFileHandle(path, DELETE) || GetLastError() != ERROR_ACCESS_DENIED;
}

MString MWhoMayDelete(const MString& /*path*/) {
    return MTranslate("an administrator");
}

bool MMayCreate(MNewEntry entry, const MString& folder) {
    const DWORD access = entry == MNewEntry::File ? FILE_ADD_FILE : FILE_ADD_SUBDIRECTORY;
    if (!MOpenFileHandle(folder, access)) return false;
    // Wine opens any folder so. What is noted on one of another machine may speak of users unknown here.
    if (!MIsOnFixedDrive(folder)) return true;
    const MFileHandle readable = MOpenFileHandle(folder, READ_CONTROL);
    return !readable || GrantsByDescriptor(readable.get(), access);
}

MString MWhoMayCreate(const MString& /*folder*/) {
    return MTranslate("an administrator");
}
