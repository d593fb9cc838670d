#include "setup/MLastChance.h"

#include "foundation/MProductConstants.h"
#include "foundation/win32/MWindowsHeader.h"
#include "streams/basic/MConsole.h"

#include <cstdio>

namespace {

constexpr UINT MessageStyle = 48;

bool isQuiet = false;

LONG WINAPI EndWithMessage(EXCEPTION_POINTERS* fault) {
    const MString message =
        MString::Print("An exception has occured in the application, code %x. Please make an "
                       "screenshot and send it to %s .",
                       static_cast<unsigned>(fault->ExceptionRecord->ExceptionCode), MProductSupportAddress);
    MShowLastChanceMessage(message);
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(-1));
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

void MWatchForProcessorFaults(bool isUnattended) {
    isQuiet = isUnattended;
    SetUnhandledExceptionFilter(EndWithMessage);
}

void MShowLastChanceMessage(const MString& text) {
    if (isQuiet) {
        (void)MWriteConsoleText(stderr, text + "\n");
        return;
    }
    const MWCHARBuffer wide = text.ToWide();
    MessageBoxW(nullptr, reinterpret_cast<const wchar_t*>(wide.Get()), nullptr, MessageStyle);
}
