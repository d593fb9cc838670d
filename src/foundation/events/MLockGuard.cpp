#include "foundation/events/MLockGuard.h"

#include "foundation/base/MException.h"

MLockGuard::MLockGuard(MSynchronizer* synchronizer, int32_t timeout) : synchronizer(synchronizer) {
    if (synchronizer && synchronizer->Lock(timeout) != 0)
        MRaise(MExceptionGeneral, "Could not acquire lock.");
}
