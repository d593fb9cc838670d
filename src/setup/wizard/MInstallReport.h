#pragma once

#include "install/run/MInstallRun.h"

/// What a run has done, in words with mark-up for those who ask: what was put where, which presets have new
/// ones beside them and where what they held before is kept, and which could not be merged. Empty as long as
/// nothing was done.
[[nodiscard]] MString MReportInstallation(const MInstallRun& run);
/// What nobody should have to ask for, in one line: what became of the user's presets. Empty for nothing.
[[nodiscard]] MString MSummarizeInstallation(const MInstallRun& run);
