#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// Runs a program to its end, as an ordinary user whose home is `home`, and gives the most memory that it had
/// resident at once, in bytes. Raises "The program \"{0}\" failed: {1}" (0).
[[nodiscard]] int64_t MMeasurePeakMemory(const MString& program, const MList<MString>& arguments,
                                         const MString& home);

/// The system counts for a program also what stood in its process before it started. So the benchmark program
/// starts itself anew with this word, and that small process starts what is measured.
inline constexpr const char* MPeakMemoryWord = "--peak-memory";

/// The side of the new process: its words are `MPeakMemoryWord`, the home, the program and its arguments. It
/// prints the peak in KiB. Gives the exit code.
int MRunForPeakMemory(int argumentCount, char** arguments);
