#pragma once

#include "builder/definition/MBuilderOptions.h"
#include "builder/output/MBuilderOutput.h"

/// Tells all that is wrong with a definition, with the index of an update server, or with an update, and gives the
/// exit code: warnings alone do not change it. Raises what opening and reading the file raise.
[[nodiscard]] int32_t MRunCheckCommand(const MBuilderOptions& options, MBuilderOutput& output);
