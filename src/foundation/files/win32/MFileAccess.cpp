#include "foundation/files/MFileAccess.h"

#include "foundation/base/MException.h"
#include "foundation/files/win32/MFileHandle.h"

bool MMayDelete(const MString& path) {
    return MOpenFileHandle(path, DELETE) || GetLastError() != ERROR_ACCESS_DENIED;
}

MString MWhoMayDelete(const MString& /*path*/) {
    return MTranslate("an administrator");
}
