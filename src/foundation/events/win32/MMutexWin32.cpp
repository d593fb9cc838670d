#include "foundation/events/MMutex.h"

#include "foundation/win32/MWindowsHeader.h"

struct MMutex::System {
    ~System() {
        if (handle) CloseHandle(handle);
    }

    const HANDLE handle = CreateMutexW(nullptr, FALSE, nullptr);
};

MMutex::MMutex() : system(std::make_unique<System>()) {}

MMutex::~MMutex() = default;

int32_t MMutex::Lock(int32_t timeout) {
    if (!system->handle) return 0;
    const DWORD result = WaitForSingleObject(system->handle, timeout < 0 ? INFINITE : DWORD(timeout));
    return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED ? 0 : 1;
}

void MMutex::Unlock() {
    if (system->handle) ReleaseMutex(system->handle);
}
