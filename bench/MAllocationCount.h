#pragma once

#include <cstdint>

/// How many blocks this thread has asked for so far, by `malloc` and its relatives or by `new`.
[[nodiscard]] int64_t MGetAllocationCount();
