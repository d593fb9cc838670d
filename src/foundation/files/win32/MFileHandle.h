#pragma once

#include "foundation/text/MString.h"
#include "foundation/win32/MWindowsHeader.h"

#include <memory>

struct MCloseFileHandle {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using MFileHandle = std::unique_ptr<HANDLE, MCloseFileHandle>;

/// Opens the file or directory that stands at a path, and lets everybody else go on with it. `flags` are more
/// flags of `CreateFileW`. Null on failure, of which the system then knows the reason.
[[nodiscard]] MFileHandle MOpenFileHandle(const MString& path, DWORD access, DWORD flags = 0);

/// Whether a canonical path begins at a drive that is built into this machine.
[[nodiscard]] bool MIsOnFixedDrive(const MString& path);
