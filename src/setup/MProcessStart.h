#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

struct MEmbeddedBlocks;

/// The program from its entry to its exit code, the same on every platform: makes the application, gives
/// it the command line, runs it and destroys it. `instance` is the process handle or null. `arguments`
/// come without the program's name; `blocks` is what is linked into it.
[[nodiscard]] int32_t MRunSetupProcess(void* instance, const MList<MString>& arguments,
                                       const MEmbeddedBlocks& blocks);
