#include "setup/console/MInterruption.h"

#include "foundation/win32/MWindowsHeader.h"

#include <atomic>

namespace {

std::atomic<bool> isRequested = false;

// Called on a thread of the system's own.
BOOL WINAPI Remember(DWORD) {
    return !isRequested.exchange(true);
}

}  // namespace

MInterruption::MInterruption() {
    isRequested = false;
    SetConsoleCtrlHandler(Remember, TRUE);
}

MInterruption::~MInterruption() {
    SetConsoleCtrlHandler(Remember, FALSE);
}

bool MInterruption::IsRequested() const {
    return isRequested;
}
