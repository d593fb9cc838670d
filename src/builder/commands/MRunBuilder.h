#pragma once

#include "builder/output/MBuilderOutput.h"
#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

enum MBuilderExit : int32_t {
    MBuilderExitDone = 0,
    MBuilderExitFailed = 1,  ///< or problems were found
    MBuilderExitWrongUsage = 2,
};

/// The tool: does what a command line, without the program's own name, asks for, and gives the exit code.
/// Failures are told to the output; nothing is raised.
[[nodiscard]] int32_t MRunBuilder(const MList<MString>& arguments, MBuilderOutput& output);

/// As above, with the console as output.
[[nodiscard]] int32_t MRunBuilder(const MList<MString>& arguments);
