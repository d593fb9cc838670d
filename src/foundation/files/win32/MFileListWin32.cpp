#include "foundation/files/MFileList.h"

#include "foundation/base/MRaise.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/win32/MWindowsHeader.h"

#include <memory>
#include <string_view>

namespace {

struct CloseFind {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { FindClose(handle); }
};

}  // namespace

MList<MFileListEntry> MListDirectory(const MString& directory, const MString& filter) {
    const auto raise = [&] {
        MRaise(MExceptionGeneral, "Could not access path \"{0}\" to get file list.", directory);
    };
    MList<MFileListEntry> list;
    WIN32_FIND_DATAW data;
    const MString pattern = MFile::Join(directory, filter.IsEmpty() ? MString("*") : filter);
    const HANDLE handle = FindFirstFileW(MNativePath(pattern).c_str(), &data);
    if (handle == INVALID_HANDLE_VALUE) {
        if (GetLastError() != ERROR_FILE_NOT_FOUND) raise();
        return list;
    }
    const std::unique_ptr<HANDLE, CloseFind> search(handle);
    do {
        const std::wstring_view name = data.cFileName;
        if (name != L"." && name != L"..")
            list.Add({MFromWide(data.cFileName), (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    } while (FindNextFileW(handle, &data));
    if (GetLastError() != ERROR_NO_MORE_FILES) raise();
    return list;
}
