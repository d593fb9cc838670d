#pragma once

#include <cstdint>

/// What the process tells its caller. A run with window exits with 0 on every ordinary path, and with -1
/// when the user declines to go on with damaged data; the other codes are those of an unattended run.
enum MExitCode : int32_t {
    MExitDeclined = -1,
    MExitDone = 0,
    MExitFailed = 1,      ///< the run failed; its text is on standard error
    MExitRefused = 2,     ///< refused before anything was written
    MExitIncomplete = 3,  ///< removed, but for what is listed
};
