#include "tests/support/win32/MTestProcess.h"

#include "foundation/files/win32/MNativePath.h"

namespace {

/// By the rules of CommandLineToArgvW: backslashes count only in front of a quote.
std::wstring Quote(const std::wstring& word) {
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (const wchar_t character : word) {
        if (character == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = character == L'\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, L'\\') + L"\"";
}

}  // namespace

MTestProcess::OutputFile::OutputFile() {
    wchar_t directory[MAX_PATH];
    wchar_t name[MAX_PATH];
    GetTempPathW(MAX_PATH, directory);
    GetTempFileNameW(directory, L"out", 0, name);
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    handle = CreateFileW(name, GENERIC_READ | GENERIC_WRITE,
                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, &inheritable, CREATE_ALWAYS,
                         FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

std::string MTestProcess::OutputFile::ReadAll() const {
    std::string text;
    char piece[4096];
    DWORD count;
    SetFilePointer(handle, 0, nullptr, FILE_BEGIN);
    while (ReadFile(handle, piece, sizeof piece, &count, nullptr) && count > 0) text.append(piece, count);
    // The runtime library ends lines the Windows way; tests compare what the lines say.
    std::erase(text, '\r');
    return text;
}

MTestProcess::MTestProcess(const MString& program, const MList<MString>& arguments, const MString& directory,
                           DWORD flags) {
    std::wstring commandLine = Quote(MToWide(program));
    for (const MString& argument : arguments) commandLine += L" " + Quote(MToWide(argument));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output.GetHandle();
    startup.hStdError = errors.GetHandle();
    CreateProcessW(MToWide(program).c_str(), commandLine.data(), nullptr, nullptr, TRUE, flags, nullptr,
                   MToWide(directory).c_str(), &startup, &process);
}

MProgramResult MTestProcess::GetResult() const {
    DWORD exitCode = static_cast<DWORD>(-1);
    GetExitCodeProcess(process.hProcess, &exitCode);
    return {static_cast<int32_t>(exitCode), output.ReadAll(), errors.ReadAll()};
}
