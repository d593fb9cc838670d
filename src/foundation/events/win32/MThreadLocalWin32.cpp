#include "foundation/events/MThreadLocal.h"

#include "foundation/base/MException.h"
#include "foundation/win32/MWindowsHeader.h"

MThreadLocal::MThreadLocal() : slot(TlsAlloc()) {
    if (slot == TLS_OUT_OF_INDEXES) MRaise(MExceptionGeneral, "Could not create thread local storage.");
}

MThreadLocal::~MThreadLocal() {
    TlsFree(slot);
}

void* MThreadLocal::Get() const {
    return TlsGetValue(slot);
}

void MThreadLocal::Set(void* value) const {
    TlsSetValue(slot, value);
}
