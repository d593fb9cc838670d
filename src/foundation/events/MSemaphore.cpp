#include "foundation/events/MSemaphore.h"

int32_t MSemaphore::Lock(int32_t timeout) {
    if (!Take(timeout)) return 1;
    while (autoReset && Take(0)) {}
    return 0;
}
