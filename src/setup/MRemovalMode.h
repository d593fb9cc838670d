#pragma once

#include "foundation/base/MList.h"
#include "foundation/text/MString.h"

#include <cstdint>

/// Removes the installation whose "setup.state" is in `directory`, without window and questions. The only word
/// is `uninstall`, which may be left out. Phases, and the directories that stay because they hold something
/// else, go to standard output; errors, and what could not be removed, to standard error. Returns an `MExitCode`;
/// nothing is raised as `MException`.
[[nodiscard]] int32_t MRunUnattendedRemoval(const MString& directory, const MList<MString>& words);
