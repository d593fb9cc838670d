#include "foundation/files/win32/MNativePath.h"

#include <algorithm>

namespace {

/// Directories must leave room for a short file name, so their limit is lower than that of files.
constexpr size_t LongestPlainPath = 240;

}  // namespace

std::wstring MToWide(const MString& text) {
    const MWCHARBuffer units = text.ToWide();
    return std::wstring(units.Get(), units.Get() + text.GetLength());
}

MString MFromWide(const wchar_t* text) {
    static_assert(sizeof(wchar_t) == sizeof(char16_t));
    return MString::Copy(reinterpret_cast<const char16_t*>(text));
}

std::wstring MNativePath(const MString& path) {
    std::wstring native = MToWide(path);
    std::replace(native.begin(), native.end(), L'/', L'\\');
    const bool hasDrive = native.size() > 2 && native[1] == L':' && native[2] == L'\\';
    if (native.size() == 2 && native[1] == L':') native += L'\\';
    return hasDrive && native.size() > LongestPlainPath ? L"\\\\?\\" + native : native;
}
