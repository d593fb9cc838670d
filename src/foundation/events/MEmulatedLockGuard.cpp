#include "foundation/events/MEmulatedLockGuard.h"

#include "foundation/base/MException.h"

MEmulatedLockGuard::MEmulatedLockGuard(MSynchronizationObject* object, int32_t mode)
    : object(object), mode(mode) {
    if (object && object->Acquire(mode) != 0)
        MRaise(MExceptionGeneral, "Could not acquire emulated synchronization object.");
}
