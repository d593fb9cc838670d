#include "foundation/MRandomBytes.h"

#include "foundation/MPlatform.h"
#include "foundation/MRaise.h"
#include "foundation/win32/MWindowsHeader.h"

#include <ntsecapi.h>

void MFillRandom(void* block, int32_t size) {
    if (size <= 0) return;
    if (!RtlGenRandom(block, static_cast<ULONG>(size)))
        MRaise(MExceptionGeneral, "Random bytes are not available. {0}", MSystemErrorText());
}
