#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <cstdio>

/// What the runtime library's buffered files need from the platform: paths of 16-bit text and offsets of 64
/// bits.

/// Opens a file by a mode of `fopen`. It is not inherited by programs that this one starts.
/// Gives null if it cannot be opened, or is a directory.
[[nodiscard]] std::FILE* MOpenRuntimeFile(const MString& path, const char* mode);

/// False on failure. `origin` is one of SEEK_SET, SEEK_CUR, SEEK_END.
[[nodiscard]] bool MSeekRuntimeFile(std::FILE* file, int64_t offset, int origin);

/// The position in bytes, -1 where the file has none.
[[nodiscard]] int64_t MTellRuntimeFile(std::FILE* file);

/// Sets the length in bytes. What is buffered must have been flushed. False on failure.
[[nodiscard]] bool MTruncateRuntimeFile(std::FILE* file, int64_t size);

/// Waits until what was written is on the disk. What is buffered must have been flushed. False on failure.
[[nodiscard]] bool MSyncRuntimeFile(std::FILE* file);

/// Takes the space of a file of this size in bytes, whose length stays. False if there is none; true also where
/// the system cannot tell.
[[nodiscard]] bool MReserveRuntimeFile(std::FILE* file, int64_t size);
