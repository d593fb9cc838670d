#include "embedded/MProgramBlocks.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"
#include "setup/MProcessStart.h"
#include "setup/win32/MArguments.h"

#include <cstdio>
#include <io.h>

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

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* commandLine, int) {
    AttachToConsole();
    MPlatform::PrepareProcess();
    return MRunSetupProcess(instance, MSplitArguments(commandLine), MGetProgramBlocks());
}
