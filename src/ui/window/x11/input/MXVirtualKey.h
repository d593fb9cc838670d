#pragma once

#include <cstdint>

/// The number of a key by its symbol of X, as `MSystemEvent` has it: an `MKey`, the upper-case character of a
/// Latin letter or a digit, or the number that the key has on Windows. 0 for all others.
[[nodiscard]] int32_t MXVirtualKey(uint32_t symbol);
