#include "bench/MAllocationCount.h"

#include <cstdlib>

namespace {

thread_local constinit int64_t allocationCount = 0;

}  // namespace

int64_t MGetAllocationCount() {
    return allocationCount;
}

// The program's own functions stand in front of those of the C library, which gives the originals under other
// names. The library's `new` calls them too.

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the C library's.
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
// NOLINTEND(bugprone-reserved-identifier)

void* malloc(size_t size) noexcept {
    ++allocationCount;
    return __libc_malloc(size);
}

void* calloc(size_t count, size_t size) noexcept {
    ++allocationCount;
    return __libc_calloc(count, size);
}

void* realloc(void* block, size_t size) noexcept {
    ++allocationCount;
    return __libc_realloc(block, size);
}
}
