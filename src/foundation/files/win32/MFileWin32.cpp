#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/win32/MFileHandle.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"

#include <shlobj.h>

namespace {

/// From 1601-01-01, where the system's times begin, to 1970-01-01; in the system's units of 100 nanoseconds.
constexpr int64_t EpochDistance = 116444736000000000;
constexpr int64_t UnitsPerMicrosecond = 10;

DWORD GetAttributes(const MString& path) {
    return GetFileAttributesW(MNativePath(path).c_str());
}

bool HasAttribute(const MString& path, DWORD attribute) {
    const DWORD attributes = GetAttributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute) != 0;
}

bool IsBareDrive(const MString& path) {
    return path.GetLength() == 2 && path[1] == u':';
}

}  // namespace

bool MFile::Exists(const MString& path) {
    return path.IsEmpty() || GetAttributes(path) != INVALID_FILE_ATTRIBUTES;
}

bool MFile::IsDirectory(const MString& path) {
    return path.IsEmpty() || IsBareDrive(path) || HasAttribute(path, FILE_ATTRIBUTE_DIRECTORY);
}

bool MFile::IsLink(const MString& path) {
    return HasAttribute(path, FILE_ATTRIBUTE_REPARSE_POINT);
}

bool MFile::IsDevice(const MString& path) {
    return HasAttribute(path, FILE_ATTRIBUTE_DEVICE);
}

bool MFile::IsValidDirectory(const MString& path) {
    if (path.IsEmpty()) return true;
    const wchar_t volume[] = {static_cast<wchar_t>(path[0]), L':', L'\\', 0};
    return GetVolumeInformationW(volume, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 0) &&
           HasAttribute(path, FILE_ATTRIBUTE_DIRECTORY);
}

bool MFile::IsWritable(const MString& path) {
    return MOpenFileHandle(path, GENERIC_WRITE) != nullptr;
}

int64_t MFile::GetFileTime(const MString& path) {
    const MFileHandle file = MOpenFileHandle(path, GENERIC_READ);
    FILETIME time;
    if (!file || !::GetFileTime(file.get(), nullptr, nullptr, &time))
        MRaise(MExceptionGeneral, "Cannot retrieve file time of  \"{0}\".", path);
    const auto units = static_cast<int64_t>(uint64_t(time.dwHighDateTime) << 32 | time.dwLowDateTime);
    return (units - EpochDistance) / UnitsPerMicrosecond;
}

void MFile::SetFileTime(const MString& path, int64_t time) {
    const MFileHandle file = MOpenFileHandle(path, FILE_WRITE_ATTRIBUTES);
    const auto units = static_cast<uint64_t>(time * UnitsPerMicrosecond + EpochDistance);
    const FILETIME native = {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    if (!file || !::SetFileTime(file.get(), nullptr, nullptr, &native))
        MRaise(MExceptionGeneral, "Could not set system times to {0}.", path);
}

void MFile::CreateDirectory(const MString& path) {
    if (IsDirectory(path) || CreateDirectoryW(MNativePath(path).c_str(), nullptr)) return;
    const MString reason = MSystemErrorText();
    // Somebody else may have created it at the same moment.
    if (!IsDirectory(path)) MRaise(MExceptionGeneral, "Could not create path \"{0}\". {1}", path, reason);
}

void MFile::Rename(const MString& from, const MString& to) {
    if (!MoveFileW(MNativePath(from).c_str(), MNativePath(to).c_str()))
        MRaise(MExceptionGeneral, "Could not rename file \"{0}\" to \"{1}\".", from, to);
}

void MFile::Delete(const MString& path) {
    const std::wstring native = MNativePath(path);
    // A link to a directory is a directory to the system, which removes the link alone.
    const bool isDirectoryLink = IsLink(path) && IsDirectory(path);
    SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (!(isDirectoryLink ? RemoveDirectoryW(native.c_str()) : DeleteFileW(native.c_str())))
        MRaise(MExceptionGeneral, "Could not delete file \"{0}\".", path);
}

void MFile::RemoveDirectory(const MString& path) {
    if (!RemoveDirectoryW(MNativePath(path).c_str()))
        MRaise(MExceptionGeneral, "Could not remove directory \"{0}\".", path);
}

void MFile::MakeExecutable(const MString& /*path*/) {}

MString MFile::ResolvePath(const MString& path) {
    PIDLIST_ABSOLUTE items = nullptr;
    wchar_t resolved[MAX_PATH];
    const bool isResolved =
        SUCCEEDED(SHParseDisplayName(MNativePath(path).c_str(), nullptr, &items, 0, nullptr)) &&
        SHGetPathFromIDListW(items, resolved);
    CoTaskMemFree(items);
    if (!isResolved) MRaise(MExceptionGeneral, "Could not resolve path {0}.", path);
    return Normalize(MFromWide(resolved));
}

MString MFile::GetCurrentPath() {
    wchar_t current[520] = {};
    GetCurrentDirectoryW(520, current);
    return Normalize(MFromWide(current));
}

void MFile::SetCurrentPath(const MString& path) {
    SetCurrentDirectoryW(MNativePath(path).c_str());
}

MList<MString> MFile::GetDrives() {
    wchar_t names[1024] = {};
    GetLogicalDriveStringsW(1023, names);
    MList<MString> drives;
    for (const wchar_t* name = names; *name; name += wcslen(name) + 1) drives.Add(Normalize(MFromWide(name)));
    return drives;
}
