#include "foundation/events/MMutex.h"
#include "foundation/module/MPlatform.h"

#include <cerrno>
#include <chrono>
#include <pthread.h>

struct MMutex::System {
    System() {
        pthread_mutexattr_t attributes;
        pthread_mutexattr_init(&attributes);
        pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
        pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
        pthread_mutex_init(&mutex, &attributes);
        pthread_mutexattr_destroy(&attributes);
    }
    ~System() { pthread_mutex_destroy(&mutex); }

    int Wait(int32_t timeout) {
        if (timeout < 0) return pthread_mutex_lock(&mutex);
        // The system's own wait with a limit goes by the wall clock, which may be set meanwhile.
        using namespace std::chrono;
        const auto end = steady_clock::now() + milliseconds(timeout);
        int result = pthread_mutex_trylock(&mutex);
        while (result == EBUSY && steady_clock::now() < end) {
            MPlatform::Sleep(1);
            result = pthread_mutex_trylock(&mutex);
        }
        return result;
    }

    pthread_mutex_t mutex;
};

MMutex::MMutex() : system(std::make_unique<System>()) {}

MMutex::~MMutex() = default;

int32_t MMutex::Lock(int32_t timeout) {
    const int result = system->Wait(timeout);
    if (result != EOWNERDEAD) return result;
    pthread_mutex_consistent(&system->mutex);
    return 0;
}

void MMutex::Unlock() {
    pthread_mutex_unlock(&system->mutex);
}
