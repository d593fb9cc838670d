#include "streams/resources/MResource.h"

#include "foundation/base/MException.h"

MStream& MResource::Open() {
    stored.Rewind();
    if (!isCompressed) return stored;
    if (!plain) plain = std::make_unique<MZLibStream>();
    plain->Open(&stored, false);
    return *plain;
}

MMemoryStream& MResource::OpenMemory() {
    if (isCompressed) MRaise(MExceptionGeneral, "Attempt to attach compressed resource using memory-stream.");
    stored.Rewind();
    return stored;
}
