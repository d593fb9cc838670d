#pragma once

#include "foundation/text/MString.h"

#include <cstdint>
#include <cstdio>

/// What the runtime library's buffered files need from the platform: paths of 16-bit text and offsets of 64
/// bits.

enum class MRuntimeAccess { Read, ReadAndWrite };

/// Opens a file of bytes; null for one that is missing, for a directory, a pipe or a device, none of which is
/// waited for. It is not inherited by programs that this one starts. Where there is `MFileWay`, raises what
/// that raises for a file that is to be written.
[[nodiscard]] std::FILE* MOpenRuntimeFile(const MString& path, MRuntimeAccess access);

/// Opens an empty file for reading and writing. What stood there is deleted, a link too, and the file is
/// created only if then nothing stands there. What cannot be deleted is emptied if this user may write into
/// it. Gives null and raises as `MOpenRuntimeFile`.
[[nodiscard]] std::FILE* MCreateRuntimeFile(const MString& path);

/// False on failure. `origin` is one of SEEK_SET, SEEK_CUR, SEEK_END.
[[nodiscard]] bool MSeekRuntimeFile(std::FILE* file, int64_t offset, int origin);

/// The position in bytes, -1 where the file has none.
[[nodiscard]] int64_t MTellRuntimeFile(std::FILE* file);

/// Sets the length in bytes. What is buffered must have been flushed. False on failure.
[[nodiscard]] bool MTruncateRuntimeFile(std::FILE* file, int64_t size);

/// Waits until what was written is on the disk. What is buffered must have been flushed. False on failure.
[[nodiscard]] bool MSyncRuntimeFile(std::FILE* file);

/// Takes the space of a file of this size in bytes, whose length stays. False if there is none; true also
/// where the system cannot tell.
[[nodiscard]] bool MReserveRuntimeFile(std::FILE* file, int64_t size);
