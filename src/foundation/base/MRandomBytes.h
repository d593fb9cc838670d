#pragma once

#include <cstdint>

/// Fills a block with `size` random bytes that are fit for keys, from the system's own source. Waits only
/// until the system has gathered enough once after its start. Any thread. Raises "Random bytes are not
/// available. {0}" (0), with the system's own words.
void MFillRandom(void* block, int32_t size);
