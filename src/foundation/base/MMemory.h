#pragma once

#include <cstddef>
#include <cstdint>

/// A value below 3 stays as it is; any other gives the smallest power of two that is not below `n`.
/// String blocks, list capacities and memory streams all grow by this rule. Values above 2^31 saturate there.
[[nodiscard]] constexpr uint32_t NextPowerOfTwo(uint32_t n) {
    if (n < 3) return n;
    uint32_t power = 4;
    while (power < n && power < 0x80000000u) power <<= 1;
    return power;
}

/// Allocates `size` bytes. Raises "Out of memory." (0) when the system refuses.
[[nodiscard]] void* MMemoryAlloc(size_t size);

/// Resizes a block to `size` bytes; null allocates, size 0 frees and returns null.
/// Raises "Out of memory." (0), and then the old block is still there.
[[nodiscard]] void* MMemoryRealloc(void* block, size_t size);

/// Frees a block. Raises "NULL cannot be released." (0) for null.
void MMemoryFree(void* block);
