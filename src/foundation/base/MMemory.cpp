#include "foundation/base/MMemory.h"

#include "foundation/base/MException.h"

#include <cstdlib>

void* MMemoryAlloc(size_t size) {
    void* block = std::malloc(size);
    if (!block && size != 0) MRaise(MExceptionGeneral, "Out of memory.");
    return block;
}

void* MMemoryRealloc(void* block, size_t size) {
    if (size == 0) {
        std::free(block);
        return nullptr;
    }
    void* resized = std::realloc(block, size);
    if (!resized) MRaise(MExceptionGeneral, "Out of memory.");
    return resized;
}

void MMemoryFree(void* block) {
    if (!block) MRaise(MExceptionGeneral, "NULL cannot be released.");
    std::free(block);
}
