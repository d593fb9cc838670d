#include "foundation/events/MThreadLocal.h"

#include "foundation/base/MException.h"

#include <pthread.h>

static_assert(sizeof(pthread_key_t) == sizeof(uint32_t));

MThreadLocal::MThreadLocal() {
    if (pthread_key_create(&slot, nullptr) != 0)
        MRaise(MExceptionGeneral, "Could not create thread local storage.");
}

MThreadLocal::~MThreadLocal() {
    pthread_key_delete(slot);
}

void* MThreadLocal::Get() const {
    return pthread_getspecific(slot);
}

void MThreadLocal::Set(void* value) const {
    pthread_setspecific(slot, value);
}
