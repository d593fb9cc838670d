#include "foundation/events/MSemaphore.h"

#include "foundation/win32/MWindowsHeader.h"

#include <limits>

struct MSemaphore::System {
    ~System() {
        if (handle) CloseHandle(handle);
    }

    const HANDLE handle = CreateSemaphoreW(nullptr, 0, std::numeric_limits<LONG>::max(), nullptr);
};

MSemaphore::MSemaphore(bool autoReset) : system(std::make_shared<System>()), autoReset(autoReset) {}

MSemaphore::~MSemaphore() = default;

bool MSemaphore::Take(int32_t timeout) {
    return WaitForSingleObject(system->handle, timeout < 0 ? INFINITE : DWORD(timeout)) == WAIT_OBJECT_0;
}

void MSemaphore::Unlock() {
    ReleaseSemaphore(system->handle, 1, nullptr);
}
