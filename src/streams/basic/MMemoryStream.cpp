#include "streams/basic/MMemoryStream.h"

#include "foundation/base/MException.h"
#include "foundation/base/MMemory.h"

#include <algorithm>
#include <cstring>

void MMemoryStream::Reset() {
    Attach(MBuffer());
}

void MMemoryStream::Attach(const void* block, int32_t size) {
    MBuffer borrowed;
    borrowed.Attach(block, size);
    Attach(borrowed);
}

void MMemoryStream::Attach(const MBuffer& source) {
    static_cast<MBuffer&>(buffer) = source;
    logicalSize = buffer.GetSize();
    position = 0;
}

void MMemoryStream::Trim() {
    buffer.Resize(logicalSize);
}

const char* MMemoryStream::GetPointer() const {
    return buffer.Get() ? buffer.Get() + position : nullptr;
}

void MMemoryStream::Reserve(int64_t needed) {
    const int32_t capacity = buffer.GetSize();
    if (needed <= capacity) return;
    if (needed > INT32_MAX) MRaise(MExceptionGeneral, "Out of memory.");
    const auto grown =
        static_cast<int32_t>(std::min<uint32_t>(NextPowerOfTwo(static_cast<uint32_t>(needed)), INT32_MAX));
    buffer.Resize(capacity == 0 ? static_cast<int32_t>(needed) : std::max(capacity, grown));
}

void MMemoryStream::Write(const void* block, int32_t size) {
    if (size < 0) MRaise(MExceptionGeneral, "Trying to write a block of negative size.");
    if (size == 0) return;
    Reserve(std::max<int64_t>(logicalSize, int64_t(position) + size));
    char* bytes = buffer.Edit();
    // The line reader may have left the position behind the data; what lies between must not be garbage.
    if (position > logicalSize)
        std::memset(bytes + logicalSize, 0, static_cast<size_t>(position - logicalSize));
    std::memcpy(bytes + position, block, static_cast<size_t>(size));
    position += size;
    logicalSize = std::max(logicalSize, position);
}

int32_t MMemoryStream::Read(void* block, int32_t size) {
    if (size < 0) MRaise(MExceptionGeneral, "Trying to read a block of negative size.");
    const int32_t count = std::clamp(logicalSize - position, 0, size);
    if (count == 0) return 0;
    std::memcpy(block, buffer.Get() + position, static_cast<size_t>(count));
    position += count;
    return count;
}

MLineState MMemoryStream::ReadLine(char* line, int32_t size) {
    if (size < 0) MRaise(MExceptionGeneral, "Trying to read a string of negative size.");
    if (size == 0) return MLineState::Complete;
    line[0] = 0;
    if (IsEnd()) return MLineState::End;

    const char* bytes = buffer.Get();
    MLineState state = MLineState::Complete;
    int32_t length = 0;
    for (; position < logicalSize && bytes[position] != '\n'; ++position) {
        if (bytes[position] == '\r') continue;
        if (length + 1 >= size) {
            state = MLineState::Partial;
            break;
        }
        line[length++] = bytes[position];
    }
    if (state == MLineState::Complete) ++position;
    line[length] = 0;
    return state;
}

void MMemoryStream::Seek(int64_t offset, MSeekOrigin origin) {
    int64_t start = 0;
    switch (origin) {
    case MSeekOrigin::Begin: break;
    case MSeekOrigin::Current: start = position; break;
    case MSeekOrigin::End: start = logicalSize; break;
    default: MRaise(MExceptionInvalidArgument, "Invalid seek origin.");
    }
    position = static_cast<int32_t>(std::clamp<int64_t>(offset, -start, logicalSize - start) + start);
}
