#include "foundation/base/MRandomBytes.h"

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"

#include <cerrno>
#include <sys/random.h>

void MFillRandom(void* block, int32_t size) {
    auto* bytes = static_cast<uint8_t*>(block);
    while (size > 0) {
        const ssize_t count = getrandom(bytes, static_cast<size_t>(size), 0);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) MRaise(MExceptionGeneral, "Random bytes are not available. {0}", MSystemErrorText());
        bytes += count;
        size -= static_cast<int32_t>(count);
    }
}
