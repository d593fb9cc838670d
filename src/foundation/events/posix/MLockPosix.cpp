#include "foundation/events/MLock.h"

#include <pthread.h>

struct MLock::System {
    System() {
        pthread_mutexattr_t attributes;
        pthread_mutexattr_init(&attributes);
        pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
        pthread_mutex_init(&mutex, &attributes);
        pthread_mutexattr_destroy(&attributes);
    }
    ~System() { pthread_mutex_destroy(&mutex); }

    pthread_mutex_t mutex;
};

MLock::MLock() : system(std::make_unique<System>()) {}

MLock::~MLock() = default;

void MLock::Enter() {
    pthread_mutex_lock(&system->mutex);
}

bool MLock::TryEnter() {
    return pthread_mutex_trylock(&system->mutex) == 0;
}

void MLock::Unlock() {
    pthread_mutex_unlock(&system->mutex);
}
