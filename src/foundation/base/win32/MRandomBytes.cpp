#include "foundation/base/MRandomBytes.h"

#include "foundation/base/MRaise.h"
#include "foundation/module/MPlatform.h"
#include "foundation/win32/MWindowsHeader.h"

#include <ntsecapi.h>

void MFillRandom(void* block, int32_t size) {
    if (size <= 0) return;
    if (!RtlGenRandom(block, static_cast<ULONG>(size)))
        MRaise(MExceptionGeneral, "Random bytes are not available. {0}", MSystemErrorText());
}
