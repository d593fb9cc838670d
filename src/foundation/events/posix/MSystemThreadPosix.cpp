#include "foundation/events/MSystemThread.h"

#include "foundation/base/MException.h"

#include <array>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <pthread.h>
#include <sched.h>
#include <unistd.h>

namespace {

/// What the handle and the thread share; the thread keeps it alive until its body has ended.
struct Progress {
    std::mutex mutex;
    std::condition_variable changed;
    bool resumed = false;
    bool ended = false;

    void Set(bool Progress::*flag) {
        const std::lock_guard guard(mutex);
        this->*flag = true;
        changed.notify_all();
    }
    void WaitFor(bool Progress::*flag) {
        std::unique_lock guard(mutex);
        changed.wait(guard, [&] { return this->*flag; });
    }
};

struct Start {
    std::shared_ptr<Progress> progress;
    MSystemThread::Body body;
    void* argument;
};

void* RunThread(void* argument) {
    const std::unique_ptr<Start> start(static_cast<Start*>(argument));
    start->progress->WaitFor(&Progress::resumed);
    start->body(start->argument);
    start->progress->Set(&Progress::ended);
    return nullptr;
}

int TerminationSignal() {
    return SIGRTMAX - 1;
}

/// A thread of the system cannot be ended from outside; one that never leaves its handler does no more harm.
void StayHere(int) {
    for (;;) pause();
}

}  // namespace

struct MSystemThread::System {
    pthread_t thread{};
    std::shared_ptr<Progress> progress = std::make_shared<Progress>();
    std::mutex joining;
    bool joined = false;

    void Join() {
        const std::lock_guard guard(joining);
        if (!joined) pthread_join(thread, nullptr);
        joined = true;
    }
};

MSystemThread::MSystemThread(Body body, void* argument) : system(std::make_unique<System>()) {
    auto start = std::make_unique<Start>(Start{system->progress, body, argument});
    if (pthread_create(&system->thread, nullptr, RunThread, start.get()) != 0)
        MRaise(MExceptionGeneral, "Could not create system thread.");
    static_cast<void>(start.release());
}

MSystemThread::~MSystemThread() {
    Resume();
    if (!system->joined) pthread_detach(system->thread);
}

void MSystemThread::Resume() {
    system->progress->Set(&Progress::resumed);
}

bool MSystemThread::Wait() {
    if (pthread_equal(pthread_self(), system->thread)) return false;
    system->progress->WaitFor(&Progress::ended);
    system->Join();
    return true;
}

bool MSystemThread::Terminate() {
    if (pthread_equal(pthread_self(), system->thread)) return false;
    struct sigaction action {};
    action.sa_handler = StayHere;
    sigaction(TerminationSignal(), &action, nullptr);
    pthread_kill(system->thread, TerminationSignal());
    return true;
}

void MSystemThread::SetPriority(int32_t level) {
    constexpr std::array policies = {SCHED_IDLE,  SCHED_IDLE,  SCHED_BATCH, SCHED_OTHER,
                                     SCHED_OTHER, SCHED_OTHER, SCHED_OTHER};
    const sched_param parameters{};
    pthread_setschedparam(system->thread, policies.at(static_cast<size_t>(level)), &parameters);
}

void MSystemThread::YieldToOthers() {
    sched_yield();
}
