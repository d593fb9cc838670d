#pragma once

#include "builder/commands/MBuilderOptions.h"
#include "builder/output/MBuilderOutput.h"

/// Tells all problems of a definition, by line; gives the exit code, which warnings do not change.
/// Raises what `MPrepareDefinition` raises.
[[nodiscard]] int32_t MRunCheckCommand(const MBuilderOptions& options, MBuilderOutput& output);
