#include "foundation/win32/MWindowsHeader.h"
#include "setup/MProcessStart.h"

#include <cstdio>
#include <io.h>
#include <shellapi.h>

namespace {

/// A program with windows has no console of its own: its lines go to the one it was started from,
/// unless its output was redirected.
void AttachToConsole() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    if (output && output != INVALID_HANDLE_VALUE && GetFileType(output) != FILE_TYPE_UNKNOWN) return;
    if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
    (void)std::freopen("CONIN$", "r", stdin);
    (void)std::freopen("CONOUT$", "w", stdout);
    (void)std::freopen("CONOUT$", "w", stderr);
}

MList<MString> SplitCommandLine(const wchar_t* commandLine) {
    MList<MString> words;
    int count = 0;
    // For an empty line this gives the program's own path, which no keyword equals.
    wchar_t** pieces = CommandLineToArgvW(commandLine, &count);
    for (int i = 0; i < count; ++i) words.Add(MString::Copy(reinterpret_cast<const char16_t*>(pieces[i])));
    LocalFree(pieces);
    return words;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* commandLine, int) {
    AttachToConsole();
    return MRunSetupProcess(instance, SplitCommandLine(commandLine));
}
