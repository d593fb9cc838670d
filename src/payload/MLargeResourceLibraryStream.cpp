#include "payload/MLargeResourceLibraryStream.h"

#include "foundation/base/MException.h"

MLargeResourceLibraryStream::MLargeResourceLibraryStream(MStream* library, int64_t size)
    : MSizeStream(library, size, true, false), isCompressed(false) {}

MLargeResourceLibraryStream::MLargeResourceLibraryStream(std::unique_ptr<MStream> decompressor, int64_t size)
    : MSizeStream(decompressor.release(), size, false, true), isCompressed(true) {}

int32_t MLargeResourceLibraryStream::Read(void* block, int32_t size) {
    const int64_t left = GetSize() - GetPosition();
    const int32_t count = MSizeStream::Read(block, size);
    if (count < size && count < left)
        MRaise(MExceptionStreamError, "Could not read required data from stream.");
    if (isCompressed && !isChecked && IsEnd()) {
        isChecked = true;
        // A decompressor compares its check sums only when it is asked for more than there is, and damaged
        // data may give more than the item has: as much as a block of bzip2 can hold. What goes on beyond
        // that may go on for hours.
        constexpr int32_t MostBeyond = 0x3000000;
        char beyond[4096];
        for (int32_t rest = MostBeyond; rest > 0 && GetSubStream()->Read(beyond, sizeof(beyond)) > 0;)
            rest -= sizeof(beyond);
    }
    return count;
}

void MLargeResourceLibraryStream::Seek(int64_t offset, MSeekOrigin origin) {
    // The window forbids seeking on what only moves forward; the base can skip.
    if (isCompressed)
        MStream::Seek(offset, origin);  // NOLINT(bugprone-parent-virtual-call)
    else
        MSizeStream::Seek(offset, origin);
}
