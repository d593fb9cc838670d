#include "foundation/base/MBuffer.h"

#include "foundation/base/MMemory.h"

#include <cstring>

MBufferData::MBufferData(const MBufferData& other) : size(other.size) {
    if (size == 0) return;
    block = MMemoryAlloc(static_cast<size_t>(size));
    std::memcpy(block, other.block, static_cast<size_t>(size));
}

MBufferData::~MBufferData() {
    if (block && !(flags & Borrowed)) MMemoryFree(block);
}

void* MBuffer::EditBlock() {
    MakePrivate();
    return GetData().block;
}

void MBuffer::Resize(int32_t size) {
    if (HasData() && size == GetData().size) return;
    MakePrivate();
    MBufferData& data = GetData();
    data.block = MMemoryRealloc(data.block, static_cast<size_t>(size));
    data.size = size;
}

void MBuffer::Attach(const void* block, int32_t size) {
    CreateData();
    MBufferData& data = GetData();
    data.block = const_cast<void*>(block);
    data.size = size;
    data.flags = MBufferData::Borrowed;
}

void MBuffer::MakePrivate() {
    if (!HasData()) CreateData();
    // A second handle makes the record shared, so that even a borrowed block is replaced by an owned copy.
    if (IsBorrowed()) {
        const MBuffer second = *this;
        Unshare();
        return;
    }
    Unshare();
}
