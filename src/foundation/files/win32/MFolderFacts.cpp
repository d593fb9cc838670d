#include "foundation/files/MFolderFacts.h"

#include "foundation/base/MException.h"
#include "foundation/base/MList.h"
#include "foundation/files/MSafeName.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/text/MStringFormatter.h"
#include "foundation/win32/MWindowsHeader.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <vector>

namespace {

constexpr int32_t LongestComponent = 255;
constexpr int32_t LongestPath = 32000;

bool IsAllowed(MChar character) {
    return character >= u' ' && std::u16string_view(u"<>:\"|?*").find(character) == std::u16string_view::npos;
}

/// Where a volume is mounted, by its own name if it has one: it may be mounted at several places.
MString GetVolumeName(const std::wstring& mount) {
    wchar_t name[64];
    return MFromWide(GetVolumeNameForVolumeMountPointW(mount.c_str(), name, 64) ? name : mount.c_str());
}

}  // namespace

MVolume MFindVolume(const MString& folder) {
    MVolume volume;
    // A path of a network, and that of a drive, must end in a separator.
    std::wstring native = MNativePath(folder);
    if (native.back() != L'\\') native += L'\\';
    std::vector<wchar_t> mount(native.size() + MAX_PATH);
    if (GetVolumePathNameW(native.c_str(), mount.data(), static_cast<DWORD>(mount.size()))) {
        volume.name = GetVolumeName(mount.data());
        DWORD flags = 0;
        if (GetVolumeInformationW(mount.data(), nullptr, 0, nullptr, nullptr, &flags, nullptr, 0))
            volume.isReadOnly = (flags & FILE_READ_ONLY_VOLUME) != 0;
    }
    ULARGE_INTEGER bytes;
    constexpr auto Most = static_cast<uint64_t>(std::numeric_limits<int64_t>::max());
    if (GetDiskFreeSpaceExW(native.c_str(), &bytes, nullptr, nullptr))
        volume.freeBytes = static_cast<int64_t>(std::min<uint64_t>(bytes.QuadPart, Most));
    return volume;
}

MString MFindPathFault(const MString& path, const MString& /*folder*/) {
    // What stands before is the drive.
    for (const MString& component : path.Substring(2).Split('/')) {
        const int32_t length = component.GetLength();
        if (component.IsExactly(".") || component.IsExactly("..")) continue;
        for (int32_t i = 0; i < length; ++i)
            if (!IsAllowed(component[i]))
                return MFormat(
                    MTranslate("Windows does not allow the name \"{0}\": none of < > : \" | ? * may "
                               "be in it. Please change it."),
                    component);
        const MChar last = component[length - 1];
        if (last == u' ' || last == u'.')
            return MFormat(MTranslate("Windows does not allow a name that ends in a dot or a blank. Please "
                                      "change \"{0}\"."),
                           component);
        if (!MIsSafeName(component))
            return MFormat(MTranslate("The name \"{0}\" is reserved by Windows. Please change it."),
                           component);
        if (length > LongestComponent || path.GetLength() > LongestPath)
            return MTranslate("The name is longer than the system allows. Please choose a shorter one.");
    }
    return MString();
}
