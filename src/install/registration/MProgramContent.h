#pragma once

#include <cstdint>

/// Whether a file's first bytes are those of a program: an ELF image or a script with an interpreter
/// line. Platforms with execute permissions want them set on such files.
[[nodiscard]] bool MIsProgramContent(const void* firstBytes, int32_t size);
