#include "foundation/events/MEventTarget.h"

#include "foundation/events/MEventBase.h"
#include "foundation/events/MLockGuard.h"

MLock& MEventLock() {
    static MLock* const lock = new MLock;
    return *lock;
}

MEventTarget::~MEventTarget() {
    const MLockGuard guard(&MEventLock());
    while (!connectedEvents.IsEmpty()) connectedEvents[0]->Disconnect(this);
}
