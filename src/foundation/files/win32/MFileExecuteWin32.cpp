#include "foundation/base/MGuard.h"
#include "foundation/base/MRaise.h"
#include "foundation/files/MFile.h"
#include "foundation/files/win32/MNativePath.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"

#include <process.h>
#include <shellapi.h>
#include <vector>

namespace {

/// An argument in the form that `CommandLineToArgvW` and the runtime library take apart again: a quote inside
/// and the backslashes before it, and those at the end, are escaped.
std::wstring QuoteArgument(const std::wstring& argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos) return argument;
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (const wchar_t unit : argument) {
        if (unit == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = unit == L'\\' ? backslashes + 1 : 0;
        quoted += unit;
    }
    return quoted.append(backslashes, L'\\') + L'"';
}

std::wstring JoinArguments(const std::vector<std::wstring>& words) {
    std::wstring line;
    for (size_t i = 1; i < words.size(); ++i) line += (i > 1 ? L" " : L"") + words[i];
    return line;
}

int32_t WaitFor(HANDLE process) {
    WaitForSingleObject(process, INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process, &exitCode);
    CloseHandle(process);
    return static_cast<int32_t>(exitCode);
}

/// What only the shell can start: documents, and programs that need more rights.
bool ShellOpen(const std::wstring& file, const std::wstring& arguments, const std::wstring& directory,
               HANDLE& process) {
    SHELLEXECUTEINFOW request = {};
    request.cbSize = sizeof(request);
    request.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
    request.lpVerb = L"open";
    request.lpFile = file.c_str();
    request.lpParameters = arguments.c_str();
    request.lpDirectory = directory.empty() ? nullptr : directory.c_str();
    request.nShow = SW_SHOWNORMAL;
    const bool isStarted = ShellExecuteExW(&request);
    process = isStarted ? request.hProcess : nullptr;
    return isStarted;
}

}  // namespace

int32_t MFile::Execute(const MString& path, const MList<MString>& arguments, const MString& directory,
                       bool wait) {
    if (!directory.IsEmpty()) SetCurrentPath(directory);
    const std::wstring file = MNativePath(path);
    std::vector<std::wstring> words = {QuoteArgument(file)};
    for (const MString& argument : arguments) words.push_back(QuoteArgument(MToWide(argument)));
    std::vector<const wchar_t*> vector;
    vector.reserve(words.size() + 1);
    for (const std::wstring& word : words) vector.push_back(word.c_str());
    vector.push_back(nullptr);

    // Waiting is done here: the call that waits gives -1 for a failure and for a program that ends with -1.
    const intptr_t process = _wspawnv(_P_NOWAIT, file.c_str(), vector.data());
    if (process != -1) {
        if (wait) return WaitFor(reinterpret_cast<HANDLE>(process));
        CloseHandle(reinterpret_cast<HANDLE>(process));
        return 0;
    }

    HANDLE opened;
    if (!ShellOpen(file, JoinArguments(words), directory.IsEmpty() ? std::wstring() : MNativePath(directory),
                   opened)) {
        const MString reason = MSystemErrorText();
        MRaise(MExceptionGeneral, "Could not execute file \"{0}\". {1}", path, reason);
    }
    if (opened && wait) return WaitFor(opened);
    if (opened) CloseHandle(opened);
    return 0;
}

void MFile::ExecuteWWW(const MString& url) {
    MGuard("MFile::ExecuteWWW", [&] {
        HANDLE process;
        if (ShellOpen(MToWide(url), {}, {}, process) && process) CloseHandle(process);
    });
}
