#include "streams/basic/MSizeStream.h"

#include "foundation/base/MException.h"

#include <algorithm>

MSizeStream::MSizeStream(MStream* source, int64_t size, bool seekable, bool owns) : MSizeStream() {
    AttachWindow(source, size, seekable, owns);
}

MSizeStream::~MSizeStream() {
    if (ownsSource) delete source;
}

void MSizeStream::AttachWindow(MStream* newSource, int64_t newSize, bool isSeekable, bool owns) {
    if (ownsSource && source != newSource) delete source;
    source = newSource;
    ownsSource = owns;
    seekable = isSeekable;
    position = 0;
    size = std::max<int64_t>(newSize, 0);
    startOffset = seekable ? source->GetPosition() : 0;
}

int32_t MSizeStream::Clamp(int32_t count) const {
    return static_cast<int32_t>(std::clamp<int64_t>(count, 0, size - position));
}

void MSizeStream::Write(const void* block, int32_t count) {
    const int32_t fitting = Clamp(count);
    if (fitting > 0) source->Write(block, fitting);
    position += fitting;
    if (fitting < count)
        MRaise(MExceptionStreamError, "The stream cannot be written, because its size is out of range.");
}

int32_t MSizeStream::Read(void* block, int32_t count) {
    const int32_t available = Clamp(count);
    if (available == 0) return 0;
    const int32_t read = source->Read(block, available);
    position += std::max(read, 0);
    return read;
}

void MSizeStream::Seek(int64_t offset, MSeekOrigin origin) {
    if (!seekable) MRaise(MExceptionStreamError, "Seeking operation is forbidden for the size-stream.");
    int64_t start = 0;
    switch (origin) {
    case MSeekOrigin::Begin: break;
    case MSeekOrigin::Current: start = position; break;
    case MSeekOrigin::End: start = size; break;
    default: MRaise(MExceptionInvalidArgument, "Invalid seek origin.");
    }
    const int64_t target = std::clamp(offset, -start, size - start) + start;
    source->Seek(startOffset + target, MSeekOrigin::Begin);
    position = target;
}

void MSizeStream::Flush() {
    source->Flush();
}
