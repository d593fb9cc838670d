#include "foundation/files/MFileAccess.h"

#include "foundation/files/MFileIdentity.h"

bool MIsSameFile(const MString& first, const MString& second) {
    const auto identity = MFindFileIdentity(first);
    return identity && identity == MFindFileIdentity(second);
}
