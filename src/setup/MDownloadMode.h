#pragma once

#include "foundation/base/MList.h"
#include "update/MDownloadDefinition.h"

#include <cstdint>

/// Fetches a package without window and questions into the directory that bears the name of `program` without its
/// extension. No further words are known. Phases and progress go to standard output, errors to standard error; an
/// interruption from the keyboard ends the run after the part in hand, and what was fetched is kept. Returns an
/// `MExitCode`; nothing is raised as `MException`.
[[nodiscard]] int32_t MRunUnattendedDownload(const MDownloadDefinition& definition, const MString& program,
                                             const MList<MString>& words);
