#pragma once

#include "payload/MLargeResourceLibrary.h"
#include "setup/console/MUnattendedOptions.h"

/// Installs the product of `definition` as the words say, with lines on standard output and errors on
/// standard error. Returns an `MExitCode`; nothing is raised as `MException`.
[[nodiscard]] int32_t MRunUnattended(MLargeResourceLibrary& definition, const MList<MString>& words,
                                     const MString& startDirectory);
