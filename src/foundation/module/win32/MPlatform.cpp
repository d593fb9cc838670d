#include "foundation/module/MPlatform.h"

#include "foundation/files/MFile.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MUnhandledException.h"
#include "foundation/win32/MWindowsHeader.h"

#include <cstdio>
#include <exception>
#include <io.h>
#include <vector>
#include <winsock2.h>

MString MPlatform::GetName() {
    return "windows";
}

MString MPlatform::ExecutableExtension() {
    return "exe";
}

bool MPlatform::Is64BitSystem() {
    // A program of 32 bits is shown a folder of its own there.
    return MFile::GetSpecialPath(MSpecialFolderProgramFiles).Contains("x86");
}

bool MPlatform::HasRootDirectory() {
    return false;
}

MString MPlatform::GetModulePath(void* instance) {
    std::vector<wchar_t> path(MAX_PATH);
    for (;;) {
        const auto size = static_cast<DWORD>(path.size());
        const DWORD length = GetModuleFileNameW(static_cast<HMODULE>(instance), path.data(), size);
        if (length < size) return MFromWide(length > 0 ? path.data() : nullptr);
        path.resize(path.size() * 2);
    }
}

MString MPlatform::GetPathText(const MString& path) {
    MString text = path;
    text.Replace("/", "\\");
    return text;
}

MString MPlatform::TakePathText(const MString& text) {
    return text;
}

void MPlatform::PrepareProcess() {
    std::set_terminate(MEndByUnhandledException);
    constexpr intptr_t NoHandle = -1;
    for (std::FILE* stream : {stdin, stdout, stderr})
        if (_fileno(stream) < 0 || _get_osfhandle(_fileno(stream)) <= NoHandle)
            (void)std::freopen("NUL", stream == stdin ? "r" : "w", stream);
}

void MPlatform::StartSubsystems() {
    // A drive without a medium is a failure of the call, not a box on the screen.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    // Without it every connection fails, and tells so.
    WSADATA implementation;
    (void)WSAStartup(MAKEWORD(2, 2), &implementation);
}

void MPlatform::StopSubsystems() {
    WSACleanup();
}

void MPlatform::Sleep(int32_t milliseconds) {
    ::Sleep(static_cast<DWORD>(milliseconds));
}

MString MSystemErrorText() {
    wchar_t* text = nullptr;
    const DWORD error = GetLastError();
    FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                       FORMAT_MESSAGE_IGNORE_INSERTS,
                   nullptr, error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    MString result = MFromWide(text);
    LocalFree(text);
    // The system ends its texts with a line end.
    result.TrimRight();
    return error == 0 || result.IsEmpty() ? MString("No error description available.") : result;
}
