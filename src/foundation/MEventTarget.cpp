#include "foundation/MEventTarget.h"

#include "foundation/MEventBase.h"
#include "foundation/MLockGuard.h"

MLock& MEventLock() {
    static MLock* const lock = new MLock;
    return *lock;
}

MEventTarget::~MEventTarget() {
    const MLockGuard guard(&MEventLock());
    while (!connectedEvents.IsEmpty()) connectedEvents[0]->Disconnect(this);
}
