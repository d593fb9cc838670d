#include "foundation/files/MFileIdentity.h"

#include "foundation/files/win32/MFileHandle.h"

std::optional<MFileIdentity> MFindFileIdentity(const MString& path) {
    const MFileHandle file = MOpenFileHandle(path, 0);
    BY_HANDLE_FILE_INFORMATION information;
    if (!file || !GetFileInformationByHandle(file.get(), &information)) return std::nullopt;
    return MFileIdentity{information.dwVolumeSerialNumber,
                         uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}
