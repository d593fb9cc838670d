#include "foundation/events/MSystemThread.h"

#include "foundation/base/MException.h"
#include "foundation/win32/MWindowsHeader.h"

#include <array>

namespace {

struct Start {
    MSystemThread::Body body;
    void* argument;
};

DWORD WINAPI RunThread(void* argument) {
    const std::unique_ptr<Start> start(static_cast<Start*>(argument));
    return static_cast<DWORD>(start->body(start->argument));
}

}  // namespace

struct MSystemThread::System {
    HANDLE handle = nullptr;
    DWORD identifier = 0;
};

MSystemThread::MSystemThread(Body body, void* argument) : system(std::make_unique<System>()) {
    auto start = std::make_unique<Start>(Start{body, argument});
    system->handle = CreateThread(nullptr, 0, RunThread, start.get(), CREATE_SUSPENDED, &system->identifier);
    if (!system->handle) MRaise(MExceptionGeneral, "Could not create system thread.");
    static_cast<void>(start.release());
}

MSystemThread::~MSystemThread() {
    Resume();
    CloseHandle(system->handle);
}

void MSystemThread::Resume() {
    ResumeThread(system->handle);
}

bool MSystemThread::Wait() {
    if (GetCurrentThreadId() == system->identifier) return false;
    return WaitForSingleObject(system->handle, INFINITE) == WAIT_OBJECT_0;
}

bool MSystemThread::Terminate() {
    if (GetCurrentThreadId() == system->identifier) return false;
    TerminateThread(system->handle, static_cast<DWORD>(-1));
    return true;
}

void MSystemThread::SetPriority(int32_t level) {
    constexpr std::array priorities = {THREAD_PRIORITY_IDLE,         THREAD_PRIORITY_LOWEST,
                                       THREAD_PRIORITY_BELOW_NORMAL, THREAD_PRIORITY_NORMAL,
                                       THREAD_PRIORITY_ABOVE_NORMAL, THREAD_PRIORITY_HIGHEST,
                                       THREAD_PRIORITY_TIME_CRITICAL};
    SetThreadPriority(system->handle, priorities.at(static_cast<size_t>(level)));
}

void MSystemThread::YieldToOthers() {
    SwitchToThread();
}
