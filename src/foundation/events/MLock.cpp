#include "foundation/events/MLock.h"

#include "foundation/module/MPlatform.h"

int32_t MLock::Lock(int32_t timeout) {
    if (timeout < Forever) return 1;
    if (timeout > 0) return TryRepeatedly(timeout) ? 0 : 1;
    if (timeout == 0) return TryEnter() ? 0 : 1;
    Enter();
    return 0;
}

bool MLock::TryRepeatedly(int32_t rounds) {
    for (int32_t round = 0; round <= rounds; ++round) {
        if (TryEnter()) return true;
        MPlatform::Sleep(1);
    }
    return false;
}
