#include "foundation/events/MLock.h"

#include "foundation/win32/MWindowsHeader.h"

struct MLock::System {
    System() { InitializeCriticalSection(&section); }
    ~System() { DeleteCriticalSection(&section); }

    CRITICAL_SECTION section;
};

MLock::MLock() : system(std::make_unique<System>()) {}

MLock::~MLock() = default;

void MLock::Enter() {
    EnterCriticalSection(&system->section);
}

bool MLock::TryEnter() {
    return TryEnterCriticalSection(&system->section) != 0;
}

void MLock::Unlock() {
    LeaveCriticalSection(&system->section);
}
